// SPDX-License-Identifier: Apache-2.0
#include "AdsEventLogger.h"
#include "HostSettings.h"
#include "ProcessIdentity.h"
#include "SharedUrlSession.h"
#include "Switches.h"
#include "tests/support/HostName.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/Waiting.h"

#include <Velmora/Support.h>

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>
#include <QtCore/QSettings>

#include <thread>
#include <unistd.h>

namespace velmora::test {

using adserver::Fault;

class AdsEventLoggerTest : public LocalAdServer {
protected:
    static AdsEventLogger &logger() { return AdsEventLogger::sharedInstance(); }

    QUrl event(int number) const { return QUrl(baseUrl + QStringLiteral("/event/%1").arg(number)); }

    static QList<QUrl> stored() {
        return EventStore::unarchived(VLMObjForKey(QStringLiteral("eventStackData")).toByteArray());
    }

    /// What the settings hold as being sent, by any process.
    static QList<QUrl> underWay() {
        QList<QUrl> urls;
        const auto settings = HostSettings::open();
        settings->beginGroup(QStringLiteral("eventsUnderWay"));
        for (const QString &key : settings->childKeys())
            urls += EventStore::unarchived(settings->value(key).toByteArray());
        return urls;
    }

    QStringList received() {
        QStringList paths;
        for (const auto &request : server.log().requests(QStringLiteral("/event/*")))
            paths.append(request.path());
        return paths;
    }
};

TEST_F(AdsEventLoggerTest, AFailedEventIsQueuedAndSurvivesTheRun) {
    server.faults().set(QStringLiteral("/event/1"), Fault::reset());
    logger().logEventWithURL(event(1));
    ASSERT_TRUE(eventually([&] { return logger().eventStack() == QList<QUrl>{event(1)}; }));
    EXPECT_EQ(stored(), QList<QUrl>{event(1)});
    restartProcess();
    EXPECT_EQ(logger().eventStack(), QList<QUrl>{event(1)});
    quietly(50);
    // One request for one event, and nothing is sent before the first success of the run.
    EXPECT_EQ(server.log().count(QStringLiteral("/event/1")), 1);
}

TEST_F(AdsEventLoggerTest, AnEventIsNotSentOnAConnectionThatTheServerHasClosed) {
    server.faults().set(QStringLiteral("/event/*"), Fault::stale());
    for (int i = 0; i < 5; ++i) {
        logger().logEventWithURL(event(i));
        ASSERT_TRUE(eventually([&] { return received().size() == i + 1; }));
        quietly(20);
        EXPECT_EQ(received().size(), i + 1);
    }
    EXPECT_TRUE(logger().eventStack().isEmpty());
}

TEST_F(AdsEventLoggerTest, ASuccessSendsTheQueueAndAnyReplyIsASuccess) {
    for (const Fault &fault :
         {Fault::statusCode(500, "no"), Fault::huge(Q_INT64_C(1) << 40), Fault::truncated()}) {
        for (int i : {1, 2, 3})
            logger().addEventURL(event(i));
        ASSERT_TRUE(eventually([&] { return logger().eventStack().size() == 3; }));
        server.log().clear();
        server.faults().set(QStringLiteral("/event/0"), fault);
        logger().logEventWithURL(event(0));
        ASSERT_TRUE(eventually([&] { return received().size() == 4; }));
        QStringList paths = received();
        EXPECT_EQ(paths.takeFirst(), QStringLiteral("/event/0"));
        // The three are sent together and arrive in any order.
        paths.sort();
        EXPECT_EQ(paths, (QStringList{QStringLiteral("/event/1"), QStringLiteral("/event/2"),
                                      QStringLiteral("/event/3")}));
        // A late answer would send the next turn's queue.
        ASSERT_TRUE(eventually([] { return stored().isEmpty() && underWay().isEmpty(); }));
        handleEvents();
    }
    EXPECT_EQ(server.log().requests(QStringLiteral("/event/1")).first().method, QByteArray("GET"));
}

TEST_F(AdsEventLoggerTest, AUrlThatKeepsFailingDoesNotDelayTheOthers) {
    // On another port, because a broken connection fails all requests that wait for it.
    const QUrl failing(QStringLiteral("https://127.0.0.1:1/event"));
    logger().addEventURL(failing);
    logger().addEventURL(event(2));
    handleEvents();
    logger().logEventWithURL(event(0));
    // The deliveries of 0 and 2 each send the queue once more.
    ASSERT_TRUE(eventually([&] {
        return logger().eventStack() == QList<QUrl>{failing} &&
               server.log().count(QStringLiteral("/event/2")) == 1;
    }));
    quietly(100);
    EXPECT_EQ(server.log().count(QStringLiteral("/event/2")), 1);
    EXPECT_EQ(logger().eventStack(), QList<QUrl>{failing});
}

TEST_F(AdsEventLoggerTest, TheQueueIsStoredEvenWhenNothingIsAdded) {
    EXPECT_FALSE(VLMObjForKey(QStringLiteral("eventStackData")).isValid());
    logger().addEventURL({});
    handleEvents();
    EXPECT_TRUE(VLMObjForKey(QStringLiteral("eventStackData")).isValid());
    EXPECT_TRUE(logger().eventStack().isEmpty());
}

TEST_F(AdsEventLoggerTest, TheQueueStoredUnderALaterNameIsMergedAndMovesThere) {
    const HostName name;
    logger().addEventURL(event(1));
    handleEvents();
    restartProcess();
    HostName::set(QStringLiteral("later"));
    logger().addEventURL(event(2));
    handleEvents();
    restartProcess();

    HostName::set(QStringLiteral("host"));
    EXPECT_EQ(logger().eventStack(), QList<QUrl>{event(1)});
    HostName::set(QStringLiteral("later"));
    logger().addEventURL(event(3));
    handleEvents();
    EXPECT_EQ(stored(), (QList<QUrl>{event(2), event(1), event(3)}));
    restartProcess();
    EXPECT_EQ(logger().eventStack().size(), 3);
    restartProcess();
    HostName::set(QStringLiteral("host"));
    EXPECT_TRUE(logger().eventStack().isEmpty());
    // It also moves when the run ends before the next event.
    logger().addEventURL(event(4));
    handleEvents();
    HostName::set(QStringLiteral("later"));
    restartProcess();
    EXPECT_EQ(logger().eventStack().size(), 4);
    logger().setEventStack({});
    logger().addEventURL({});
    handleEvents();
}

TEST_F(AdsEventLoggerTest, UnreadableQueuesCountAsEmptyAndOnlyWebAddressesAreSent) {
    for (const QVariant &value :
         {QVariant(QByteArray("bplist00another")), QVariant(QStringLiteral("text")), QVariant(5),
          QVariant(EventStore::archived({event(1)}).chopped(3))}) {
        restartProcess();
        VLMSetObjForKey(value, QStringLiteral("eventStackData"));
        EXPECT_TRUE(logger().eventStack().isEmpty());
    }
    restartProcess();
    VLMSetObjForKey(EventStore::archived({QUrl(QStringLiteral("file:///etc/passwd")), event(1)}),
                    QStringLiteral("eventStackData"));
    EXPECT_EQ(logger().eventStack(), QList<QUrl>{event(1)});
    Switches::activateDebugMode();
    logger().logEventWithURL(QUrl(QStringLiteral("file:///etc/passwd")));
    EXPECT_TRUE(hasLogged(QStringLiteral("event refused")));
}

TEST_F(AdsEventLoggerTest, EventsMayComeFromAnyThread) {
    logger();
    std::thread worker([this] {
        for (int i = 0; i < 10; ++i)
            AdsEventLogger::sharedInstance().logEventWithURL(event(i));
    });
    worker.join();
    EXPECT_TRUE(eventually([&] { return received().size() == 10; }));
}

TEST_F(AdsEventLoggerTest, AnEventIsStoredWhileItIsUnderWayAndNoLonger) {
    server.faults().set(QStringLiteral("/event/*"), Fault::hang());
    logger().logEventWithURL(event(1));
    EXPECT_EQ(underWay(), QList<QUrl>{event(1)});
    EXPECT_TRUE(stored().isEmpty());
    ASSERT_TRUE(eventually([&] { return received().size() == 1; }));
    server.faults().clear();
    ASSERT_TRUE(eventually([] { return underWay().isEmpty(); }));
    EXPECT_TRUE(stored().isEmpty());
    // An end of the run is no answer.
    server.faults().set(QStringLiteral("/event/*"), Fault::hang());
    logger().logEventWithURL(event(2));
    restartProcess();
    EXPECT_EQ(stored(), QList<QUrl>{event(2)});
    EXPECT_TRUE(underWay().isEmpty());
}

TEST_F(AdsEventLoggerTest, WhatAProcessThatIsGoneWasSendingJoinsTheQueue) {
    VLMSetObjForKey(EventStore::archived({event(1)}), QStringLiteral("eventStackData"));
    const QString own = ProcessIdentity::ofThisProcess();
    const QString pid = own.section(u'-', 0, 0);
    // Another process had the number of this one; nobody has the second; the third has no form.
    int number = 2;
    for (const QString &gone :
         {pid + QStringLiteral("-1"), QStringLiteral("999999999-1"), QStringLiteral("nobody")})
        VLMSetObjForKey(EventStore::archived({event(number++)}),
                        QStringLiteral("eventsUnderWay/") + gone);
    const qint64 parent = getppid();
    QFile stat(QStringLiteral("/proc/%1/stat").arg(parent));
    ASSERT_TRUE(stat.open(QIODevice::ReadOnly));
    const QByteArray text = stat.readAll();
    const QString alive =
        QStringLiteral("eventsUnderWay/%1-%2")
            .arg(parent)
            .arg(QLatin1String(text.mid(text.lastIndexOf(')') + 2).split(' ').value(19)));
    VLMSetObjForKey(EventStore::archived({event(9)}), alive);
    restartProcess();
    QList<QUrl> urls = logger().eventStack();
    EXPECT_EQ(urls.takeFirst(), event(1));
    EXPECT_EQ(QSet<QUrl>(urls.begin(), urls.end()), (QSet<QUrl>{event(2), event(3), event(4)}));
    EXPECT_EQ(stored().size(), 4);
    EXPECT_EQ(underWay(), QList<QUrl>{event(9)});
    VLMUserDefaults().removeObject(alive);
}

TEST_F(AdsEventLoggerTest, WhileAdsAreRemovedEventsStayQueuedAndAreNotTriedAgain) {
    server.faults().set(QStringLiteral("/event/1"), Fault::hang());
    logger().addEventURL(event(0));
    logger().logEventWithURL(event(1));
    ASSERT_TRUE(eventually([&] { return received().size() == 1; }));
    Switches::setADSRemoved(true);
    SharedUrlSession::cancelAll();
    logger().logEventWithURL(event(2));
    ASSERT_TRUE(eventually([] { return stored().size() == 3; }));
    const QDateTime written = QFileInfo(HostSettings::place()).lastModified();
    quietly(100);
    EXPECT_EQ(received().size(), 1);
    EXPECT_EQ(QFileInfo(HostSettings::place()).lastModified(), written);
    EXPECT_TRUE(underWay().isEmpty());
    Switches::setADSRemoved(false);
}

TEST_F(AdsEventLoggerTest, AQueueThatIsTooLongLosesItsOldestAndSaysSo) {
    QList<QUrl> many;
    for (int i = 0; i < 10'000; ++i)
        many.append(event(i));
    VLMSetObjForKey(EventStore::archived(many), QStringLiteral("eventStackData"));
    restartProcess();
    Switches::activateDebugMode();
    for (int i : {10'000, 10'001})
        logger().addEventURL(event(i));
    ASSERT_TRUE(eventually([&] { return stored().value(9'999) == event(10'001); }));
    EXPECT_EQ(stored().first(), event(2));
    EXPECT_EQ(logger().eventStack(), stored());
    EXPECT_TRUE(hasLogged(QStringLiteral("its 2 oldest events are dropped")));
    // When that many wait for an answer, further events are queued at once.
    server.faults().set(QStringLiteral("/event/*"), Fault::hang());
    server.faults().set(QStringLiteral("/event/0"), Fault());
    logger().logEventWithURL(event(0));
    ASSERT_TRUE(eventually([&] { return logger().eventStack().isEmpty(); }));
    logger().logEventWithURL(event(1));
    ASSERT_TRUE(eventually([&] { return stored() == QList<QUrl>{event(1)}; }));
}

TEST_F(AdsEventLoggerTest, AQueueInUseElsewhereIsNotWaitedForAndNothingIsLost) {
    logger().addEventURL(event(1));
    handleEvents();
    Switches::activateDebugMode();
    const QString path = HostSettings::place() + QStringLiteral(".velmora-lock");
    auto other = std::make_unique<FileLock>(path);
    ASSERT_EQ(other->tryLock({}), FileLock::Result::Locked);
    QElapsedTimer clock;
    clock.start();
    logger().addEventURL(event(2));
    handleEvents();
    EXPECT_LT(clock.elapsed(), 1'000);
    EXPECT_EQ(stored(), QList<QUrl>{event(1)});
    EXPECT_EQ(underWay(), QList<QUrl>{event(2)});
    EXPECT_TRUE(hasLogged(QStringLiteral("in use by another process")));
    other.reset();
    ASSERT_TRUE(eventually([&] { return stored() == QList<QUrl>{event(1), event(2)}; }));
    EXPECT_TRUE(underWay().isEmpty());
}

TEST_F(AdsEventLoggerTest, EventsUnderWayMoveToALaterName) {
    const HostName name;
    server.faults().set(QStringLiteral("/event/1"), Fault::hang());
    logger().logEventWithURL(event(1));
    HostName::set(QStringLiteral("moved"));
    logger().addEventURL(event(2));
    handleEvents();
    EXPECT_EQ(underWay(), QList<QUrl>{event(1)});
    EXPECT_EQ(stored(), QList<QUrl>{event(2)});
    HostName::set(QStringLiteral("host"));
    EXPECT_TRUE(underWay().isEmpty());
    HostName::set(QStringLiteral("moved"));
    server.faults().clear();
    ASSERT_TRUE(eventually([&] { return received().size() == 2 && underWay().isEmpty(); }));
    EXPECT_TRUE(stored().isEmpty());
}

TEST_F(AdsEventLoggerTest, WhereNothingCanBeWrittenEventsAreKeptForTheRun) {
    const HostName name;
    HostName::set(QStringLiteral("unwritable"));
    Switches::activateDebugMode();
    const QString file = HostSettings::place();
    QFile::remove(file);
    QDir().mkpath(file + QStringLiteral("/x"));
    server.faults().set(QStringLiteral("/event/*"), Fault::reset().times(2));
    for (int i : {1, 2})
        logger().logEventWithURL(event(i));
    ASSERT_TRUE(eventually([] { return logger().eventStack().size() == 2; }));
    EXPECT_EQ(logged().filter(QStringLiteral("unwritable.conf cannot be written")).size(), 1);
    QDir(file).removeRecursively();
    logger().addEventURL(event(3));
    handleEvents();
    EXPECT_EQ(stored().size(), 3);
    restartProcess();
    EXPECT_EQ(logger().eventStack().size(), 3);
    logger().logEventWithURL(event(4));
    ASSERT_TRUE(eventually([&] { return stored().isEmpty() && underWay().isEmpty(); }));
}

TEST_F(AdsEventLoggerTest, ALockThatAKilledProcessLeftDoesNotHoldUpTheHost) {
    logger().addEventURL(event(1));
    handleEvents();
    QFile left(HostSettings::place() + QStringLiteral(".lock"));
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.close();
    logger().addEventURL(event(2));
    handleEvents();
    EXPECT_EQ(stored().size(), 2);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.close();
    Switches::setADSRemoved(false);
    EXPECT_LT(clock.elapsed(), 1'000);
}

TEST_F(AdsEventLoggerTest, TenThousandQueuedEventsFlushWithoutQuadraticCost) {
    QList<QUrl> many;
    for (int i = 0; i < 10'000; ++i)
        many.append(QUrl(QStringLiteral("https://127.0.0.1:1/event/%1").arg(i)));
    VLMSetObjForKey(EventStore::archived(many), QStringLiteral("eventStackData"));
    restartProcess();
    ASSERT_EQ(logger().eventStack().size(), 10'000);
    logger().logEventWithURL(event(0));
    // The closed port refuses every one, so that each is queued again.
    ASSERT_TRUE(eventually([] { return logger().eventStack().size() < 5'000; }, 60'000));
    ASSERT_TRUE(eventually([] { return logger().eventStack().size() == 10'000; }, 60'000));
    ASSERT_TRUE(eventually([] { return stored().size() == 10'000; }));
}

} // namespace velmora::test

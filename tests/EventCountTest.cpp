// SPDX-License-Identifier: Apache-2.0
#include "AdsEventLogger.h"
#include "tests/support/ChildTest.h"
#include "tests/support/LocalAdServer.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QRandomGenerator>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <cstdlib>
#include <mutex>
#include <unistd.h>

namespace velmora::test {

using adserver::Fault;

/// Runs in a child process: logs events and prints each one's path once logEventWithURL() has
/// returned. VELMORA_TEST_CHILD is "NAME PAUSE WAY MILLISECONDS": it pauses between events, and
/// ends in that way so long after the first.
TEST(HostThatLogs, DISABLED_UntilItEnds) {
    const QStringList told = qEnvironmentVariable("VELMORA_TEST_CHILD").split(QLatin1Char(' '));
    const auto end = [&] {
        if (told.at(2) == QStringLiteral("exit"))
            std::exit(0);
        QCoreApplication::quit();
    };
    int count = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        const QString path = QStringLiteral("/event/%1-%2").arg(told.at(0)).arg(count++);
        AdsEventLogger::sharedInstance().logEventWithURL(QUrl(Deployment::current().acsURL + path));
        const QByteArray line = path.toLatin1() + '\n';
        EXPECT_EQ(::write(STDOUT_FILENO, line.constData(), size_t(line.size())), line.size());
        if (count == 1)
            QTimer::singleShot(told.at(3).toInt(), end);
    });
    timer.start(told.at(1).toInt());
    QCoreApplication::exec();
}

/// Counts events that several processes of one host log while they are ended in every way.
class EventCountTest : public LocalAdServer {
protected:
    EventCountTest() {
        server.stop();
        server.setObserver([this](const auto &request, const QString &outcome) {
            const std::lock_guard lock(mutex);
            if (outcome == QStringLiteral("204"))
                ++delivered[request.path()];
        });
        baseUrl = server.start();
        goOnline();
    }

    /// A hundred in the long run of the tests.
    static int repetitions() { return qEnvironmentVariableIntValue("VELMORA_TEST_REPETITIONS"); }

    /// A process that has logged an event and runs.
    std::unique_ptr<QProcess> startHost(const QString &way = QStringLiteral("none"),
                                        int milliseconds = 3'600'000) {
        auto host = std::make_unique<QProcess>();
        QMap<QString, QString> variables = variablesFor(server, folder.path());
        variables.insert(QStringLiteral("VELMORA_TEST_CHILD"), QStringLiteral("%1 %2 %3 %4")
                                                                   .arg(++m_hosts)
                                                                   .arg(random.bounded(4))
                                                                   .arg(way)
                                                                   .arg(milliseconds));
        host->setProcessEnvironment(childEnvironment(variables));
        host->start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--gtest_filter=HostThatLogs.*"),
                     QStringLiteral("--gtest_also_run_disabled_tests")});
        while (host->waitForReadyRead(20'000) && !host->peek(100'000).contains("/event/")) {
        }
        EXPECT_TRUE(host->peek(100'000).contains("/event/"));
        return host;
    }

    void kill(QProcess &host) {
        host.kill();
        collect(host);
    }

    /// Waits for the end of a process, and takes down what it has logged and which of its answers
    /// may have been lost.
    void collect(QProcess &host) {
        ASSERT_TRUE(host.state() == QProcess::NotRunning || host.waitForFinished(20'000));
        const QByteArrayList lines = host.readAllStandardOutput().split('\n');
        for (const QByteArray &line : lines) {
            if (line.startsWith("/event/"))
                logged.append(QString::fromLatin1(line));
        }
        QSettings settings(QStringLiteral("Velmora Tests"), QStringLiteral("host"));
        for (const QString &key : settings.allKeys()) {
            if (key.startsWith(QStringLiteral("eventsUnderWay/")))
                noteInterrupted(settings.value(key).toByteArray());
        }
        if (host.exitStatus() == QProcess::NormalExit)
            noteInterrupted(settings.value(QStringLiteral("eventStackData")).toByteArray());
    }

    /// Expects every logged event to be delivered or queued, once.
    void expectExactCount() {
        QHash<QString, int> count;
        for (const QUrl &url : AdsEventLogger::sharedInstance().eventStack())
            ++count[url.path()];
        RecordProperty("queued", int(count.size()));
        const std::lock_guard lock(mutex);
        for (auto it = delivered.begin(); it != delivered.end(); ++it)
            count[it.key()] += it.value();
        int twice = 0;
        QStringList lost;
        QStringList tooMany;
        for (const QString &path : std::as_const(logged)) {
            const int times = count.value(path);
            if (times == 0)
                lost.append(path);
            twice += times > 1;
            if (times > 1 + interrupted.value(path))
                tooMany.append(path);
        }
        EXPECT_TRUE(lost.isEmpty()) << lost.size() << " lost: " << qPrintable(lost.join(u' '));
        EXPECT_TRUE(tooMany.isEmpty()) << qPrintable(tooMany.join(u' '));
        EXPECT_GT(logged.size(), m_hosts);
        RecordProperty("logged", int(logged.size()));
        RecordProperty("lost", int(lost.size()));
        RecordProperty("twice", twice);
        RecordProperty("processes", m_hosts);
    }

    void breakSomeConnections() {
        server.faults().set(QStringLiteral("/event/*"), Fault::reset().times(random.bounded(4)));
    }

    void noteInterrupted(const QByteArray &archive) {
        for (const QUrl &url : EventStore::unarchived(archive))
            ++interrupted[url.path()];
    }

    QTemporaryDir folder;
    QRandomGenerator random{20260731};
    QStringList logged;
    QHash<QString, int> interrupted; // at how many ends its answer may have been lost
    std::mutex mutex;
    QHash<QString, int> delivered; // from the server's threads

private:
    int m_hosts = 0;
};

TEST_F(EventCountTest, NoEventIsLostWhenTheHostIsKilled) {
    const int kills = std::max(30, 10 * repetitions());
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        breakSomeConnections();
        const auto host = startHost();
        QThread::usleep(random.bounded(250'000));
        kill(*host);
    }
    expectExactCount();
}

TEST_F(EventCountTest, NoEventIsLostWhenTheHostQuitsOrExits) {
    for (int i = 0; i < std::max(10, repetitions()) && !HasFailure(); ++i) {
        breakSomeConnections();
        const auto host =
            startHost(i % 2 ? QStringLiteral("exit") : QStringLiteral("quit"), random.bounded(150));
        collect(*host);
    }
    expectExactCount();
}

TEST_F(EventCountTest, TwoProcessesShareTheQueue) {
    QElapsedTimer clock;
    clock.start();
    const auto steady = startHost();
    while (!clock.hasExpired(repetitions() > 1 ? 60'000 : 4'000) && !HasFailure()) {
        const auto other = startHost();
        for (int pause = random.bounded(60); pause > 0; --pause) {
            breakSomeConnections();
            QThread::msleep(20);
        }
        kill(*other);
    }
    kill(*steady);
    expectExactCount();
}

} // namespace velmora::test

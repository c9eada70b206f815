// SPDX-License-Identifier: Apache-2.0
#include "UrlSession.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <optional>

namespace velmora::test {

using adserver::Fault;

class UrlSessionTest : public LocalAdServer {
protected:
    UrlSessionTest() {
        server.campaign().setMedia(QStringLiteral("/file"), QByteArray(300'000, 'v'));
    }

    UrlSession::Configuration trusting(int idleTimeoutMs = 20'000) const {
        return {QStringLiteral("127.0.0.1"), server.caPem(), idleTimeoutMs, 6, {}, {}};
    }

    UrlRequest to(const QString &path, const QByteArray &body = {}) const {
        UrlRequest request;
        request.url = QUrl(baseUrl + path);
        if (!body.isEmpty()) {
            request.method = "POST";
            request.body = body;
        }
        return request;
    }

    UrlRequest toFile(const QString &path = QStringLiteral("/file")) const {
        UrlRequest request = to(path);
        request.destination = folder.filePath(QStringLiteral("media"));
        return request;
    }

    /// Starts a request and waits. @return nothing when the completion was not called in time
    static std::optional<UrlResponse> answer(UrlSession &session, const UrlRequest &request) {
        std::optional<UrlResponse> response;
        const UrlTaskPtr task = session.start(request, [&](const UrlResponse &r) { response = r; });
        EXPECT_TRUE(task->isRunning());
        EXPECT_TRUE(eventually([&] { return response.has_value(); }));
        EXPECT_FALSE(task->isRunning());
        return response;
    }

    /// Names of the files in the download folder.
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
};

TEST_F(UrlSessionTest, AFileGetsItsNameOnlyWhenItIsComplete) {
    UrlSession session(trusting());
    // Larger than what is read at once.
    server.faults().set(QStringLiteral("/file"), Fault::huge(12'345'678));
    ASSERT_EQ(answer(session, toFile())->error, QString());
    EXPECT_EQ(QFile(toFile().destination).size(), 12'345'678);
    QFile::remove(toFile().destination);

    for (const char *fault : {"truncated", "reset"}) {
        server.faults().setFromText(QStringLiteral("/file=") + QLatin1String(fault));
        EXPECT_FALSE(answer(session, toFile())->error.isEmpty()) << fault;
        EXPECT_TRUE(files().isEmpty()) << fault;
    }
    server.faults().set(QStringLiteral("/file"), Fault::huge(40'000'000));
    EXPECT_TRUE(answer(session, toFile())->error.contains(QStringLiteral("longer than")));
    EXPECT_TRUE(files().isEmpty());

    UrlRequest nowhere = toFile();
    server.faults().clear();
    ASSERT_TRUE(QFile(folder.filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly));
    nowhere.destination = folder.filePath(QStringLiteral("file/media"));
    EXPECT_FALSE(answer(session, nowhere)->error.isEmpty());
    EXPECT_EQ(answer(session, toFile())->error, QString());
}

TEST_F(UrlSessionTest, ADownloadDoesNotFollowASymbolicLink) {
    UrlSession session(trusting());
    QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(QStringLiteral("precious"));
    ASSERT_TRUE(QFile::link(target, toFile().destination));
    EXPECT_FALSE(answer(session, toFile())->error.isEmpty());
    EXPECT_FALSE(QFile::exists(target));
}

TEST_F(UrlSessionTest, OnlyTrustedServersAreAccepted) {
    adserver::CertificateAuthority stranger;
    const struct {
        const char *what;
        adserver::Identity identity;
    } cases[] = {{"unknown authority", stranger.validLeaf()},
                 {"expired", server.authority().expiredLeaf()},
                 {"another host's", server.authority().wrongHostLeaf()}};
    for (const auto &test : cases) {
        server.stop();
        server.setIdentity(test.identity);
        baseUrl = server.start();
        server.log().clear();
        UrlSession session(trusting());
        EXPECT_FALSE(answer(session, toFile())->error.isEmpty()) << test.what;
        EXPECT_TRUE(files().isEmpty()) << test.what;
        EXPECT_EQ(server.log().count(), 0) << test.what;
    }
    // The private authority is trusted for its own host only.
    server.stop();
    server.setIdentity(server.authority().validLeaf());
    baseUrl = server.start();
    UrlSession::Configuration elsewhere = trusting();
    elsewhere.privateHost = QStringLiteral("localhost");
    UrlSession session(elsewhere);
    EXPECT_FALSE(answer(session, toFile())->error.isEmpty());
    UrlRequest byName = toFile();
    byName.url.setHost(QStringLiteral("localhost"));
    EXPECT_EQ(answer(session, byName)->error, QString());
}

TEST_F(UrlSessionTest, IdleConnectionsAreClosed) {
    VirtualTime time;
    UrlSession session(trusting());
    const auto threads = [] {
        return QDir(QStringLiteral("/proc/self/task"))
            .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
            .size();
    };
    EXPECT_EQ(answer(session, toFile())->error, QString());
    const auto busy = threads();
    time.advance(4);
    EXPECT_EQ(answer(session, toFile())->error, QString());
    time.advance(4);
    EXPECT_EQ(threads(), busy);
    time.advance(2);
    EXPECT_TRUE(eventually([&] { return threads() < busy; }));
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_EQ(answer(session, toFile())->error, QString());
}

TEST_F(UrlSessionTest, RefusesOtherSchemes) {
    UrlSession session(trusting());
    for (const char *address : {"", "file:///etc/passwd", "ftp://127.0.0.1/x", "https://",
                                "data:,x", "https:///x", "127.0.0.1/x"}) {
        UrlRequest request = toFile();
        request.url = QUrl(QLatin1String(address));
        EXPECT_FALSE(answer(session, request)->error.isEmpty()) << address;
    }
}

TEST_F(UrlSessionTest, AnOnlyOnceRequestIsNotRepeatedWhenItsConnectionBreaks) {
    UrlSession session(trusting());
    for (const Fault &fault : {Fault::reset(), Fault::close(), Fault::stale()}) {
        const bool isStale = fault.kind == Fault::Kind::Stale;
        for (const bool isWarm : {false, true}) {
            for (UrlRequest request :
                 {to(QStringLiteral("/event")), to(QStringLiteral("/event"), "{}")}) {
                request.onlyOnce = true;
                SCOPED_TRACE(QStringLiteral("fault %1, warm %2, %3")
                                 .arg(int(fault.kind))
                                 .arg(isWarm)
                                 .arg(QString::fromLatin1(request.method))
                                 .toStdString());
                server.faults().clear();
                if (isWarm) {
                    ASSERT_EQ(answer(session, toFile())->error, QString());
                }
                server.faults().set(QStringLiteral("/event"), fault);
                server.log().clear();
                // The stale fault breaks reused connections only, and this request has a new one.
                EXPECT_EQ(answer(session, request)->error.isEmpty(), isStale);
                EXPECT_EQ(server.log().count(QStringLiteral("/event")), 1);
            }
        }
    }
}

TEST_F(UrlSessionTest, AnOnlyOnceRequestFollowsRedirectsAndRequestsEachAddressOnce) {
    UrlSession session(trusting());
    UrlRequest request = to(QStringLiteral("/event/a"), "{}");
    request.onlyOnce = true;
    server.faults().set(QStringLiteral("/event/a"), Fault::redirect(QStringLiteral("b")));
    EXPECT_EQ(answer(session, request)->status, 204);
    const auto received = server.log().requests();
    ASSERT_EQ(received.size(), 2);
    EXPECT_EQ(received.last().path(), QStringLiteral("/event/b"));
    EXPECT_EQ(received.last().method, QByteArray("GET"));
    EXPECT_TRUE(received.last().body.isEmpty());

    server.faults().set(QStringLiteral("/event/b"), Fault::reset());
    EXPECT_FALSE(answer(session, request)->error.isEmpty());
    EXPECT_EQ(server.log().count(), 4);

    server.log().clear();
    server.faults().set(QStringLiteral("/event/b"), Fault::redirect(QStringLiteral("/event/a")));
    EXPECT_EQ(answer(session, request)->status, 302);
    EXPECT_LT(server.log().count(), 100);
    server.faults().set(QStringLiteral("/event/a"),
                        Fault::redirect(QStringLiteral("http://127.0.0.1:9/x")));
    EXPECT_EQ(answer(session, request)->status, 302);
}

TEST_F(UrlSessionTest, ASilentServerTimesOut) {
    UrlSession session(trusting(300));
    server.faults().set(QStringLiteral("/file"), Fault::hang());
    EXPECT_FALSE(answer(session, toFile())->error.isEmpty());
}

TEST_F(UrlSessionTest, RequestsBeyondTheLimitWaitAndFinishInOrder) {
    UrlSession::Configuration configuration = trusting();
    configuration.mostAtOnce = 1;
    UrlSession session(configuration);
    QList<int> finished;
    for (int i = 0; i < 30; ++i)
        session.start(to(QStringLiteral("/event/%1").arg(i)),
                      [&finished, i](const UrlResponse &) { finished.append(i); });
    EXPECT_TRUE(finished.isEmpty());
    ASSERT_TRUE(eventually([&] { return finished.size() == 30; }));
    EXPECT_TRUE(std::is_sorted(finished.begin(), finished.end()));
}

TEST_F(UrlSessionTest, ItIsDestroyedAtOnceWithAHungServerAndCallsNoCompletion) {
    server.faults().set(QStringLiteral("*"), Fault::hang());
    bool called = false;
    QElapsedTimer clock;
    {
        UrlSession session(trusting());
        for (int i = 0; i < 10; ++i)
            session.start(toFile(), [&](const UrlResponse &) { called = true; });
        ASSERT_TRUE(eventually([&] { return server.log().count() > 0; }));
        clock.start();
    }
    EXPECT_LT(clock.elapsed(), 1000);
    handleEvents();
    EXPECT_FALSE(called);
    EXPECT_TRUE(files().isEmpty());
}

} // namespace velmora::test

// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AdServerFixture.h"

namespace velmora::test {

TEST_F(AdServerTest, EveryFaultReachesTheClient) {
    const QString path = QStringLiteral("/clip.mp4");
    const QByteArray clip(200001, 'c');
    m_server.campaign().setMedia(path, clip);
    Faults &faults = m_server.faults();

    faults.set(path, Fault::statusCode(503, "later"));
    Result result = get(path);
    EXPECT_EQ(result.status, 503);
    EXPECT_EQ(result.body, "later");
    faults.set(path, Fault::statusCode(500)); // without a body the connection must not stall
    EXPECT_EQ(get(path).status, 500);

    faults.set(path, Fault::wrongBody("<html>"));
    result = get(path);
    EXPECT_EQ(result.status, 200);
    EXPECT_EQ(result.body, "<html>");

    faults.set(path, Fault::truncated());
    result = get(path);
    EXPECT_EQ(result.error, QNetworkReply::RemoteHostClosedError);
    EXPECT_EQ(result.body, clip.left(100000));

    faults.set(path, Fault::delay(150));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(get(path).body, clip);
    EXPECT_GE(timer.elapsed(), 150);

    m_server.campaign().setMedia(QStringLiteral("/target"), "moved here");
    faults.set(path, Fault::redirect(m_server.baseUrl() + QStringLiteral("/target")));
    EXPECT_EQ(get(path).body, "moved here");

    faults.clear();
    EXPECT_EQ(get(path).body, clip);
}

TEST_F(AdServerTest, TheMostSpecificPatternAppliesUntilItIsUsedUp) {
    m_server.campaign().setMedia(QStringLiteral("/m/a"), "good");
    Faults &faults = m_server.faults();
    faults.set(QStringLiteral("/m/a"), Fault::statusCode(501).times(2));
    faults.set(QStringLiteral("/m/*"), Fault::statusCode(502).times(1));
    faults.set(QStringLiteral("*"), Fault::statusCode(503).times(1));
    QList<int> statuses;
    for (int i = 0; i < 5; ++i) {
        statuses << get(QStringLiteral("/m/a?query")).status;
    }
    EXPECT_EQ(statuses, (QList<int>{501, 501, 502, 503, 200}));
}

TEST_F(AdServerTest, ConnectionsAreResetOrClosedWithoutAnAnswer) {
    m_server.faults().set(adPath, Fault::reset());
    RawClient reset(m_server);
    reset.send("POST /api/v1/banners HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(reset.waitForEnd(), ECONNRESET);

    for (const Fault &fault : {Fault::truncated(), Fault::close()}) {
        m_server.faults().set(adPath, fault);
        RawClient client(m_server);
        client.send("POST /api/v1/banners HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
        EXPECT_EQ(client.waitForEnd(), 0);
    }
    EXPECT_EQ(m_server.log().count(adPath), 3);

    m_server.faults().set(adPath, Fault::stale());
    RawClient reused(m_server);
    reused.send("POST /api/v1/banners HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
    EXPECT_TRUE(reused.receive().startsWith("HTTP/1.1 "));
    reused.send("POST /api/v1/banners HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(reused.waitForEnd(), 0);
    EXPECT_EQ(m_server.log().count(adPath), 5);
}

TEST_F(AdServerTest, AHugeBodyIsStreamedUntilTheClientAborts) {
    const qint64 size = Q_INT64_C(1) << 40;
    m_server.faults().set(QStringLiteral("/huge"), Fault::huge(size));
    const std::unique_ptr<QNetworkReply> reply(m_client.get(requestFor(QStringLiteral("/huge"))));
    reply->setReadBufferSize(1 << 20);
    qint64 received = 0;
    EXPECT_TRUE(eventually([&] { return (received += reply->readAll().size()) > (4 << 20); }));
    EXPECT_EQ(reply->header(QNetworkRequest::ContentLengthHeader).toLongLong(), size);
    reply->abort();
    EXPECT_EQ(get(QStringLiteral("/lookup")).status, 200);
}

TEST_F(AdServerTest, AHangingRequestIsAnsweredWhenTheFaultIsCleared) {
    m_server.campaign().setReply("answer");
    m_server.faults().set(adPath, Fault::hang().times(1));
    const std::unique_ptr<QNetworkReply> reply(m_client.post(requestFor(adPath), QByteArray("{}")));
    ASSERT_TRUE(eventually([this] { return m_server.log().count(adPath) == 1; }));
    EXPECT_EQ(post(adPath).body, "answer"); // times(1) affects the first request only
    EXPECT_FALSE(reply->isFinished());
    m_server.faults().clear(adPath);
    EXPECT_TRUE(eventually([&] { return reply->isFinished(); }));
    EXPECT_EQ(reply->readAll(), "answer");
}

TEST_F(AdServerTest, StopEndsEveryKindOfConnectionAtOnce) {
    m_server.faults().set(QStringLiteral("/hang"), Fault::hang());
    m_server.faults().set(QStringLiteral("/slow"), Fault::delay(60000));
    m_server.faults().set(QStringLiteral("/huge"), Fault::huge(Q_INT64_C(1) << 40));
    std::vector<std::unique_ptr<RawClient>> clients;
    for (const char *start :
         {"GET /hang HTTP/1.1\r\n\r\n", "GET /slow HTTP/1.1\r\n\r\n", "GET /huge HTTP/1.1\r\n\r\n",
          "POST /event HTTP/1.1\r\nContent-Length: 9\r\n\r\nhalf", "GET /unfin", ""}) {
        clients.push_back(std::make_unique<RawClient>(m_server));
        clients.back()->send(start);
    }
    QTcpSocket speaksNoTls;
    speaksNoTls.connectToHost(QStringLiteral("127.0.0.1"), RawClient::port(m_server));
    ASSERT_TRUE(speaksNoTls.waitForConnected(timeoutMs));
    ASSERT_TRUE(m_server.log().waitForCount(QStringLiteral("/h*"), 2, timeoutMs));
    ASSERT_TRUE(m_server.log().waitForCount(QStringLiteral("/slow"), 1, timeoutMs));

    const QString url = m_server.baseUrl();
    const quint16 port = RawClient::port(m_server);
    QElapsedTimer timer;
    timer.start();
    m_server.stop();
    EXPECT_LT(timer.elapsed(), 1000);
    m_server.stop();
    EXPECT_FALSE(m_server.isRunning());

    EXPECT_EQ(m_server.start(port), url);
    m_client.clearConnectionCache();
    EXPECT_EQ(get(QStringLiteral("/lookup")).status, 200);
}

TEST(FaultsTest, FaultsAreReadFromTheirCommandLineForm) {
    Faults faults;
    EXPECT_TRUE(faults.setFromText(QStringLiteral("/a*=status:503:try: later")));
    const Fault status = faults.take(QStringLiteral("/abc")).fault;
    EXPECT_EQ(status.kind, Fault::Kind::Status);
    EXPECT_EQ(status.status, 503);
    EXPECT_EQ(status.body, "try: later");
    EXPECT_TRUE(faults.setFromText(QStringLiteral("/r=redirect:https://x/?a=b")));
    EXPECT_EQ(faults.take(QStringLiteral("/r")).fault.location, QStringLiteral("https://x/?a=b"));
    EXPECT_TRUE(faults.setFromText(QStringLiteral("/h=huge:5000000000")));
    EXPECT_EQ(faults.take(QStringLiteral("/h")).fault.size, Q_INT64_C(5000000000));
    for (const char *good : {"*=hang", "/=reset", "/=close", "/=stale", "/=truncated", "/=delay:0",
                             "/=body:", "/=status:204"}) {
        EXPECT_TRUE(faults.setFromText(QLatin1String(good))) << good;
    }
    for (const char *bad :
         {"", "/", "/x", "x=hang", "=hang", "/=", "/=hangs", "/=hang:1", "/=delay", "/=delay:-1",
          "/=delay:1s", "/=status:99", "/=status:", "/=huge:-1", "/=huge", "/=redirect:"}) {
        EXPECT_FALSE(faults.setFromText(QLatin1String(bad))) << bad;
    }
}

} // namespace velmora::test

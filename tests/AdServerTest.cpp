// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AdServerFixture.h"

namespace velmora::test {

TEST_F(AdServerTest, RequestsAreRecordedByteForByte) {
    QByteArray body = QByteArray::fromRawData("\0\r\n\r\nGET /fake HTTP/1.1\r\n\xff", 26);
    body += QByteArray(40000, 'b');
    const QByteArray first = "POST /api/v1/banners?x=%20y HTTP/1.1\r\nhOsT:  127.0.0.1 \r\n"
                             "X-B: 2\r\nx-a: 1\r\nX-B: 3\r\n"
                             "Content-Type: application/x-www-form-urlencoded\r\n"
                             "Content-Length: " +
                             QByteArray::number(body.size()) + "\r\n\r\n" + body;
    const QByteArray second = "GET /event/seen HTTP/1.1\r\nHost: x\r\n\r\n";
    RawClient client(m_server);
    client.send(first + second); // pipelined on one connection
    EXPECT_TRUE(client.receive().startsWith("HTTP/1.1 200"));

    ASSERT_TRUE(m_server.log().waitForCount(QStringLiteral("/event*"), 1, timeoutMs));
    const QList<RecordedRequest> requests = m_server.log().requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[0].raw, first);
    EXPECT_EQ(requests[0].body, body);
    EXPECT_EQ(requests[0].target, "/api/v1/banners?x=%20y");
    EXPECT_EQ(requests[0].path(), adPath);
    EXPECT_EQ(requests[0].header("host"), "127.0.0.1");
    EXPECT_EQ(requests[0].headers[1], std::pair(QByteArray("X-B"), QByteArray("2")));
    EXPECT_EQ(requests[0].headers[3], std::pair(QByteArray("X-B"), QByteArray("3")));
    EXPECT_EQ(requests[1].raw, second);

    m_server.log().clear();
    EXPECT_EQ(m_server.log().count(), 0);
    EXPECT_FALSE(m_server.log().waitForCount(adPath, 1, 1));
}

TEST_F(AdServerTest, UnreadableRequestsAreRefusedAndRecorded) {
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"GARBAGE\r\n\r\n", "HTTP/1.1 400"},
        {"POST /event HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n", "HTTP/1.1 411"},
        {"POST /event HTTP/1.1\r\nContent-Length: -1\r\n\r\n", "HTTP/1.1 400"},
        {"POST /event HTTP/1.1\r\nContent-Length: 999999999999\r\n\r\n", "HTTP/1.1 413"}};
    for (const auto &[sent, answer] : cases) {
        m_server.log().clear();
        RawClient client(m_server);
        client.send(sent);
        EXPECT_TRUE(client.receive().startsWith(answer)) << sent.constData();
        ASSERT_TRUE(m_server.log().waitForCount(QStringLiteral("*"), 1, timeoutMs));
        EXPECT_EQ(m_server.log().requests().constFirst().raw, sent);
    }
}

TEST_F(AdServerTest, EditsOfTheCampaignFolderShowAtOnce) {
    EXPECT_EQ(post(adPath).body, R"({"standard":[],"video":[]})");

    const QString file = m_folder.filePath(QStringLiteral("campaign.json"));
    const QByteArray video(300000, 'v');
    const QByteArray one = R"({ "standard": [ {"name": "one"} ], "video": [], "other": 1e2 })";
    const QByteArray two = R"({ "standard": [ {"name": "two"} ], "video": [], "other": 1e2 })";
    writeFile(file, one);
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(QStringLiteral("media")));
    writeFile(m_folder.filePath(QStringLiteral("media/a clip.mp4")), video);
    m_server.campaign().setFolder(m_folder.path());

    EXPECT_EQ(post(adPath).body, one);
    EXPECT_EQ(get(QStringLiteral("/media/a%20clip.mp4")).body, video);
    writeFile(file, two); // same length, possibly the same time stamp
    EXPECT_EQ(post(adPath).body, two);

    for (const QByteArray &broken :
         {QByteArray("{ \"standard\": ["), QByteArray("[]"), QByteArray()}) {
        writeFile(file, broken);
        EXPECT_EQ(post(adPath).body, two) << broken.constData();
        EXPECT_FALSE(m_server.campaign().errorString().isEmpty()) << broken.constData();
    }
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(post(adPath).body, two);
    writeFile(file, one);
    EXPECT_EQ(post(adPath).body, one);
    EXPECT_TRUE(m_server.campaign().errorString().isEmpty());

    m_server.campaign().setReply("not json");
    m_server.campaign().setMedia(QStringLiteral("/media/a clip.mp4"), "short");
    EXPECT_EQ(post(adPath).body, "not json");
    EXPECT_EQ(get(QStringLiteral("/media/a%20clip.mp4")).body, "short");
    EXPECT_EQ(get(adPath).status, 404);
    EXPECT_EQ(post(QStringLiteral("/elsewhere")).status, 404);
}

TEST_F(AdServerTest, NoFileOutsideTheCampaignFolderIsServed) {
    const QDir root(m_folder.path());
    ASSERT_TRUE(root.mkpath(QStringLiteral("campaign/sub")));
    ASSERT_TRUE(root.mkpath(QStringLiteral("campaign-other")));
    for (const char *name :
         {"secret", "campaign-other/secret", "campaign/.hidden", "campaign/a.gif"}) {
        writeFile(root.filePath(QLatin1String(name)), "bytes");
    }
    const QDir campaign(root.filePath(QStringLiteral("campaign")));
    ASSERT_TRUE(QFile::link(root.filePath(QStringLiteral("secret")),
                            campaign.filePath(QStringLiteral("out.gif"))));
    ASSERT_TRUE(QFile::link(root.filePath(QStringLiteral("campaign-other")),
                            campaign.filePath(QStringLiteral("dir"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("a.gif"), campaign.filePath(QStringLiteral("in.gif"))));
    m_server.campaign().setFolder(campaign.path());

    for (const char *target :
         {"/../secret", "/sub/../../secret", "/%2e%2e/secret", "/..%2fsecret",
          "/%2e%2e%2fcampaign-other/secret", "/..\\secret", "//secret", "/out.gif", "/dir/secret",
          "/.hidden", "/sub", "/", "/a.gif%00.png", "secret"}) {
        RawClient client(m_server);
        client.send(QByteArray("GET ") + target + " HTTP/1.1\r\nHost: x\r\n\r\n");
        EXPECT_TRUE(client.receive().startsWith("HTTP/1.1 404")) << target;
    }
    EXPECT_EQ(get(QStringLiteral("/in.gif")).body, "bytes"); // a link that stays inside
}

TEST_F(AdServerTest, LookUpsNameTheApps) {
    writeFile(m_folder.filePath(QStringLiteral("campaign.json")),
              R"({"lookup": {"1": "From file", "2": "Überschrieben"}})");
    m_server.campaign().setFolder(m_folder.path());
    m_server.campaign().setLookupName(QStringLiteral("2"),
                                      QStringLiteral("Photo Editor - Filters"));

    EXPECT_EQ(get(QStringLiteral("/lookup?id=1")).body,
              R"({"resultCount":1,"results":[{"trackName":"From file"}]})");
    EXPECT_EQ(get(QStringLiteral("/lookup?country=de&id=2")).body,
              R"({"resultCount":1,"results":[{"trackName":"Photo Editor - Filters"}]})");
    for (const char *path : {"/lookup?id=3", "/lookup?id=", "/lookup"}) {
        EXPECT_EQ(get(QLatin1String(path)).body, R"({"resultCount":0,"results":[]})") << path;
    }
}

TEST_F(AdServerTest, EventsArrivingTogetherAreAllCounted) {
    const int clients = 4;
    const int each = 25;
    std::vector<std::thread> threads;
    for (int i = 0; i < clients; ++i) {
        threads.emplace_back([this] {
            RawClient client(m_server);
            for (int n = 0; n < each; ++n) {
                client.send("POST /events/click HTTP/1.1\r\nContent-Length: 2\r\n\r\nhi");
                EXPECT_TRUE(client.receive().startsWith("HTTP/1.1 204"));
            }
        });
    }
    EXPECT_TRUE(m_server.log().waitForCount(QStringLiteral("/event*"), clients * each, timeoutMs));
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(m_server.log().count(), clients * each);
}

TEST_F(AdServerTest, AFailedStartHasAReason) {
    AdServer other;
    EXPECT_TRUE(other.start(RawClient::port(m_server)).isEmpty()); // ports are not shared
    EXPECT_FALSE(other.errorString().isEmpty());
    other.setIdentity({"no certificate", "no key"});
    EXPECT_TRUE(other.start().isEmpty());
    EXPECT_FALSE(other.errorString().isEmpty());
    EXPECT_FALSE(other.isRunning());
    other.setIdentity(other.authority().validLeaf());
    EXPECT_FALSE(other.start().isEmpty());
    EXPECT_TRUE(other.errorString().isEmpty());
}

TEST_F(AdServerTest, ClientsRefuseBadCertificates) {
    const CertificateAuthority stranger;
    const CertificateAuthority &own = m_server.authority();
    const std::pair<Identity, const char *> cases[] = {{own.expiredLeaf(), "expired"},
                                                       {own.wrongHostLeaf(), "wrong host"},
                                                       {stranger.validLeaf(), "unknown authority"}};
    const auto restartWith = [this](const Identity &identity) {
        m_server.stop();
        m_server.setIdentity(identity);
        ASSERT_FALSE(m_server.start().isEmpty());
        m_client.clearConnectionCache(); // it keeps the TLS settings of a host and port
    };
    for (const auto &[identity, name] : cases) {
        restartWith(identity);
        EXPECT_EQ(get(QStringLiteral("/lookup")).error, QNetworkReply::SslHandshakeFailedError)
            << name;
        EXPECT_EQ(m_server.log().count(), 0) << name;
    }
    m_trusted += stranger.caPem(); // the server still shows the stranger's leaf
    m_client.clearConnectionCache();
    EXPECT_EQ(get(QStringLiteral("/lookup")).status, 200);
    restartWith(own.validLeaf());
    EXPECT_EQ(get(QStringLiteral("/lookup")).status, 200);
}

TEST_F(AdServerTest, TheObserverIsToldEveryOutcome) {
    m_server.stop();
    std::mutex mutex;
    QStringList seen;
    m_server.setObserver([&](const RecordedRequest &request, const QString &outcome) {
        const std::lock_guard lock(mutex);
        seen << request.path() + QLatin1Char(' ') + outcome;
    });
    ASSERT_FALSE(m_server.start().isEmpty());
    m_server.faults().set(QStringLiteral("/bad"), Fault::statusCode(500));
    get(QStringLiteral("/lookup"));
    get(QStringLiteral("/bad"));
    m_server.stop();
    EXPECT_EQ(seen, (QStringList{QStringLiteral("/lookup 200"),
                                 QStringLiteral("/bad 500 instead of 404")}));
}

} // namespace velmora::test

// SPDX-License-Identifier: Apache-2.0
#include "adserver/AdServer.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>

#include <gtest/gtest.h>

namespace velmora::test {

using namespace velmora::adserver;

namespace {

constexpr int timeoutMs = 10000;

const QString adPath = QStringLiteral("/api/v1/banners");

void writeFile(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
}

/// A TLS client that sends exactly the given bytes; QNetworkAccessManager would normalise them.
class RawClient {
public:
    explicit RawClient(const AdServer &server) {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(QSslCertificate::fromData(server.caPem()));
        m_socket.setSslConfiguration(configuration);
        m_socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), port(server));
        EXPECT_TRUE(m_socket.waitForEncrypted(timeoutMs)) << qPrintable(m_socket.errorString());
    }

    static quint16 port(const AdServer &server) {
        return static_cast<quint16>(QUrl(server.baseUrl()).port());
    }

    void send(const QByteArray &bytes) {
        m_socket.write(bytes);
        m_socket.flush();
        while (m_socket.encryptedBytesToWrite() > 0 && m_socket.waitForBytesWritten(timeoutMs)) {
        }
    }

    /// The head of the next response, and the body if the head declares its length.
    QByteArray receive() {
        QByteArray bytes;
        qsizetype wanted = -1;
        while (wanted < 0 || bytes.size() < wanted) {
            if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(timeoutMs)) {
                break;
            }
            bytes += m_socket.readAll();
            const qsizetype head = bytes.indexOf("\r\n\r\n");
            if (wanted < 0 && head >= 0) {
                wanted =
                    head + 4 + RecordedRequest::fromWire(bytes).header("Content-Length").toInt();
            }
        }
        return bytes;
    }

private:
    QSslSocket m_socket;
};

} // namespace

/// A running ad server.
class AdServerTest : public testing::Test {
protected:
    struct Answer {
        int status;
        QByteArray body;
    };

    void SetUp() override {
        ASSERT_FALSE(m_server.start().isEmpty()) << qPrintable(m_server.errorString());
    }

    Answer ask(const QByteArray &request) const {
        RawClient client(m_server);
        client.send(request + " HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
        const QByteArray bytes = client.receive();
        return {bytes.mid(9, 3).toInt(), bytes.mid(bytes.indexOf("\r\n\r\n") + 4)};
    }
    Answer get(const QByteArray &path) const { return ask("GET " + path); }
    Answer askForAds() const { return ask("POST " + adPath.toLatin1()); }

    AdServer m_server;
    QTemporaryDir m_folder;
};

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

TEST_F(AdServerTest, EditsOfTheCampaignFolderShowAtOnce) {
    EXPECT_EQ(askForAds().body, R"({"standard":[],"video":[]})");

    const QString file = m_folder.filePath(QStringLiteral("campaign.json"));
    const QByteArray video(300000, 'v');
    const QByteArray one = R"({ "standard": [ {"name": "one"} ], "video": [], "other": 1e2 })";
    const QByteArray two = R"({ "standard": [ {"name": "two"} ], "video": [], "other": 1e2 })";
    writeFile(file, one);
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(QStringLiteral("media")));
    writeFile(m_folder.filePath(QStringLiteral("media/a clip.mp4")), video);
    m_server.campaign().setFolder(m_folder.path());

    EXPECT_EQ(askForAds().body, one);
    EXPECT_EQ(get("/media/a%20clip.mp4").body, video);
    writeFile(file, two); // same length, possibly the same time stamp
    EXPECT_EQ(askForAds().body, two);

    for (const QByteArray &broken :
         {QByteArray("{ \"standard\": ["), QByteArray("[]"), QByteArray()}) {
        writeFile(file, broken);
        EXPECT_EQ(askForAds().body, two) << broken.constData();
        EXPECT_FALSE(m_server.campaign().errorString().isEmpty()) << broken.constData();
    }
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(askForAds().body, two);
    writeFile(file, one);
    EXPECT_EQ(askForAds().body, one);
    EXPECT_TRUE(m_server.campaign().errorString().isEmpty());
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
        EXPECT_EQ(get(target).status, 404) << target;
    }
    EXPECT_EQ(get("/in.gif").body, "bytes"); // a link that stays inside
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
    for (const char *bad :
         {"", "/", "/x", "x=hang", "=hang", "/=", "/=hangs", "/=hang:1", "/=delay", "/=delay:-1",
          "/=delay:1s", "/=status:99", "/=status:", "/=huge:-1", "/=huge", "/=redirect:"}) {
        EXPECT_FALSE(faults.setFromText(QLatin1String(bad))) << bad;
    }
}

} // namespace velmora::test

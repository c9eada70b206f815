// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <QtNetwork/QTcpServer>

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace velmora::test {

using namespace velmora::adserver;

constexpr int timeoutMs = 10000;

inline const QString adPath = QStringLiteral("/api/v1/banners");

struct Result {
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    int status = 0;
    QByteArray body;
};

inline void writeFile(const QString &path, const QByteArray &bytes) {
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

    /// Waits until the server ends the TCP connection: 0 when it was closed in good order,
    /// otherwise the error.
    int waitForEnd() {
        const int descriptor = static_cast<int>(m_socket.socketDescriptor());
        char rest[4096];
        for (;;) {
            pollfd entry{descriptor, POLLIN, 0};
            if (::poll(&entry, 1, timeoutMs) <= 0) {
                return ETIMEDOUT;
            }
            const ssize_t got = ::recv(descriptor, rest, sizeof rest, 0);
            if (got <= 0) {
                return got == 0 ? 0 : errno;
            }
        }
    }

private:
    QSslSocket m_socket;
};

/// A running ad server and a client that trusts its certificate authority.
class AdServerTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        ASSERT_FALSE(m_server.start().isEmpty()) << qPrintable(m_server.errorString());
    }

    QNetworkRequest requestFor(const QString &path) const {
        QNetworkRequest request{QUrl(m_server.baseUrl() + path)};
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(QSslCertificate::fromData(m_trusted));
        request.setSslConfiguration(configuration);
        request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("text/plain"));
        request.setTransferTimeout(timeoutMs);
        return request;
    }

    static Result finish(QNetworkReply *reply) {
        const std::unique_ptr<QNetworkReply> owner(reply);
        EXPECT_TRUE(eventually([reply] { return reply->isFinished(); }));
        return {reply->error(), reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                reply->isOpen() ? reply->readAll() : QByteArray()};
    }

    Result get(const QString &path) { return finish(m_client.get(requestFor(path))); }
    Result post(const QString &path, const QByteArray &body = "{}") {
        return finish(m_client.post(requestFor(path), body));
    }

    AdServer m_server;
    QByteArray m_trusted = m_server.caPem();
    QTemporaryDir m_folder;
    QNetworkAccessManager m_client;
};

} // namespace velmora::test

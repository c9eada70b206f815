// SPDX-License-Identifier: Apache-2.0
#include "UrlSession.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/NetworkNamespace.h"
#include "tests/support/Waiting.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include <atomic>

namespace velmora::test {

namespace {

/// A server that speaks raw bytes: answers every connection's first bytes with what it is told.
class RawServer {
public:
    using Answer = std::function<void(QTcpSocket &)>;

    RawServer() {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket *socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                const bool isFirst = !m_received.contains(socket);
                m_received[socket] += socket->readAll();
                requests = m_received.values();
                if (isFirst && answer)
                    answer(*socket);
            });
        });
    }

    QUrl url(const QString &path = QStringLiteral("/x")) const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort()) + path);
    }

    Answer answer;
    QList<QByteArray> requests;

private:
    QTcpServer m_server;
    QMap<QTcpSocket *, QByteArray> m_received;
};

/// Sends a piece again and again for as long as the client takes it.
void repeat(QTcpSocket &socket, const QByteArray &piece, int everyMs) {
    auto *timer = new QTimer(&socket);
    QObject::connect(timer, &QTimer::timeout, &socket, [&socket, piece] {
        if (socket.bytesToWrite() < 1'000'000)
            socket.write(piece);
    });
    timer->start(everyMs);
}

} // namespace

class UrlSessionBoundsTest : public FreshProcess {
protected:
    static UrlSession::Configuration configuration() {
        UrlSession::Configuration configuration;
        configuration.idleTimeoutMs = 20'000;
        return configuration;
    }

    UrlRequest request(const QByteArray &method = "GET") const {
        UrlRequest request;
        request.url = server.url();
        request.method = method;
        return request;
    }

    static UrlResponse answer(UrlSession &session, const UrlRequest &request) {
        std::optional<UrlResponse> response;
        session.start(request, [&](const UrlResponse &r) { response = r; });
        EXPECT_TRUE(eventually([&] { return response.has_value(); }));
        return response.value_or(UrlResponse());
    }

    RawServer server;
};

TEST_F(UrlSessionBoundsTest, ARequestSaysNothingAboutItsUserOrSystem) {
    server.answer = [](QTcpSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 2\r\nSet-Cookie: id=7; Path=/\r\n"
                     "Connection: close\r\n\r\nok");
        socket.disconnectFromHost();
    };
    const QByteArray host = "Host: " + server.url().authority().toLatin1() + "\r\n";
    const QByteArray common = host + "User-Agent: Velmora\r\nAccept-Encoding: gzip\r\n";
    UrlSession session(configuration());
    UrlRequest post = request("POST");
    post.body = "{\"a\" : 1}";
    UrlRequest event = request();
    event.onlyOnce = true;
    event.ignoresBody = true;
    for (const UrlRequest &one : {request(), post, event, request()})
        EXPECT_EQ(answer(session, one).error, QString());
    const QByteArray get = "GET /x HTTP/1.1\r\n" + common + "\r\n";
    QList<QByteArray> expected{
        get, "POST /x HTTP/1.1\r\n" + common + "Content-Length: 9\r\n\r\n" + post.body, get, get};
    QList<QByteArray> received = server.requests;
    std::sort(expected.begin(), expected.end());
    std::sort(received.begin(), received.end());
    EXPECT_EQ(received, expected);
}

TEST_F(UrlSessionBoundsTest, RedirectsStayOnTheHost) {
    RawServer other;
    QByteArray location;
    server.answer = [&](QTcpSocket &socket) {
        socket.write("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + location +
                     "\r\n\r\n");
    };
    UrlSession session(configuration());
    QUrl elsewhere = other.url();
    elsewhere.setHost(QStringLiteral("localhost"));
    for (const QByteArray &target :
         {elsewhere.toEncoded(), QByteArray("file:///etc/passwd"), QByteArray("https://127.0.0.1/"),
          QByteArray("//[::1]/x"), QByteArray("javascript:1")}) {
        location = target;
        EXPECT_FALSE(answer(session, request()).error.isEmpty()) << target.constData();
    }
    EXPECT_TRUE(other.requests.isEmpty());
}

TEST_F(UrlSessionBoundsTest, WhatHasNoEndIsCutOff) {
    const struct {
        const char *what;
        QByteArray start;
        QByteArray piece;
        int everyMs;
    } answers[] = {
        {"headers", "HTTP/1.1 200 OK\r\n", "X-Filler: " + QByteArray(4'000, 'x') + "\r\n", 0},
        {"one header", "HTTP/1.1 200 OK\r\nX-Filler: ", QByteArray(4'000, 'x'), 0},
        {"interim replies", "", "HTTP/1.1 100 Continue\r\n\r\n", 0},
        {"chunks", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n",
         "1000\r\n" + QByteArray(4'096, 'x') + "\r\n", 0},
        {"a trickle", "HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n", "x", 100},
    };
    UrlSession session(configuration());
    for (const auto &one : answers) {
        SCOPED_TRACE(one.what);
        server.answer = [&one](QTcpSocket &socket) {
            socket.write(one.start);
            repeat(socket, one.piece, one.everyMs);
        };
        UrlRequest bounded = request();
        bounded.largestBody = 1'000'000;
        bounded.wholeTimeoutMs = 1'500;
        QElapsedTimer clock;
        clock.start();
        EXPECT_FALSE(answer(session, bounded).error.isEmpty());
        EXPECT_LT(clock.elapsed(), 5'000);
    }
}

TEST_F(UrlSessionBoundsTest, ABodyIsMeasuredUnpacked) {
    // qCompress() gives a zlib stream after four bytes of its own.
    const QByteArray packed = qCompress(QByteArray(64'000'000, '\0'), 9).mid(4);
    ASSERT_LT(packed.size(), 100'000);
    server.answer = [&packed](QTcpSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\nContent-Length: " +
                     QByteArray::number(packed.size()) + "\r\n\r\n" + packed);
    };
    UrlSession session(configuration());
    UrlRequest bounded = request();
    bounded.largestBody = 1'000'000;
    const UrlResponse response = answer(session, bounded);
    EXPECT_TRUE(response.error.contains(QStringLiteral("longer than")))
        << response.error.toStdString();
    EXPECT_LT(response.body.size(), 1'100'000);
}

TEST_F(UrlSessionBoundsTest, NothingLeavesWhileItIsNotAllowed) {
    std::atomic<bool> isAllowed = true;
    UrlSession::Configuration gated = configuration();
    gated.isAllowed = [&isAllowed] { return isAllowed.load(); };
    UrlSession session(gated);
    server.answer = nullptr; // hangs
    QList<QString> errors;
    int refused = 0;
    for (int i = 0; i < 20; ++i)
        session.start(request(), [&](const UrlResponse &r) {
            errors.append(r.error);
            refused += r.isRefused;
        });
    ASSERT_TRUE(eventually([&] { return server.requests.size() == 6; }));
    isAllowed = false;
    session.cancelAll();
    ASSERT_TRUE(eventually([&] { return errors.size() == 20; }));
    EXPECT_FALSE(errors.contains(QString()));
    EXPECT_EQ(refused, 14); // the others had been sent
    EXPECT_FALSE(answer(session, request()).error.isEmpty());
    quietly(100);
    EXPECT_EQ(server.requests.size(), 6);
    isAllowed = true;
    server.answer = [](QTcpSocket &socket) { socket.write("HTTP/1.1 204 No Content\r\n\r\n"); };
    EXPECT_EQ(answer(session, request()).error, QString());
}

TEST_F(NetworkNamespaceTest, ANameServerThatHangsHoldsNoEndUp) {
    if (!isInside())
        return runInside();
    FileInstead("/etc/resolv.conf").write("nameserver 192.0.2.1\n");
    ip("route add default via 10.9.0.2");
    QElapsedTimer clock;
    {
        UrlSession session({});
        UrlRequest request;
        request.url = QUrl(QStringLiteral("https://ads.example.com/x"));
        session.start(request, [](const UrlResponse &) { ADD_FAILURE(); });
        quietly(300); // the look-up is under way
        clock.start();
    }
    EXPECT_LT(clock.elapsed(), 200);
}

} // namespace velmora::test

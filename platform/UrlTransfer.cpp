#include "platform/UrlTransfer.h"

#include <QtCore/QFileInfo>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>
#include <QtNetwork/QSslConfiguration>

#include <utility>

namespace velmora {

namespace {
// Bounds what the socket may read ahead of us, so that no whole video is ever in memory.
constexpr qint64 ReadAhead = 256 * 1024;
} // namespace

UrlTransfer::UrlTransfer(UrlRequest request, QObject *parent)
    : QObject(parent), m_request(std::move(request)) {}

UrlTransfer::~UrlTransfer() {
    letGoOfReply();
}

void UrlTransfer::letGoOfReply() {
    // The reply belongs to the network manager, which may go before this object does.
    if (QNetworkReply *reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

void UrlTransfer::start(QNetworkAccessManager &manager, const QSslConfiguration &tls) {
    const QString scheme = m_request.url.scheme();
    if (!m_request.url.isValid() || m_request.url.host().isEmpty() ||
        (scheme != QLatin1String("https") && scheme != QLatin1String("http"))) {
        m_response.error = QStringLiteral("not a web address: ") + m_request.url.toString();
        QMetaObject::invokeMethod(this, &UrlTransfer::finish, Qt::QueuedConnection);
        return;
    }
    QNetworkRequest request(m_request.url);
    request.setSslConfiguration(tls);
    for (const auto &[name, value] : m_request.headers)
        request.setRawHeader(name, value);
    // A custom verb, also for POST: for its own POST the network manager adds a content type.
    m_reply = m_request.method == "GET"
                  ? manager.get(request)
                  : manager.sendCustomRequest(request, m_request.method, m_request.body);
    m_reply->setReadBufferSize(ReadAhead);
    connect(m_reply, &QNetworkReply::readyRead, this, &UrlTransfer::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &UrlTransfer::replyFinished);
}

void UrlTransfer::readAvailable() {
    if (m_done || !m_reply->isOpen())
        return;
    const QByteArray bytes = m_reply->readAll();
    if (bytes.isEmpty())
        return;
    m_response.bodySize += bytes.size();
    if (m_response.bodySize > m_request.largestBody) {
        fail(QStringLiteral("the body is longer than %1 bytes").arg(m_request.largestBody));
        return;
    }
    if (m_request.destination.isEmpty()) {
        m_response.body += bytes;
        return;
    }
    if (!m_file) {
        m_file = std::make_unique<QSaveFile>(m_request.destination);
        // A link's target lies wherever somebody pointed it.
        if (QFileInfo(m_request.destination).isSymLink()) {
            fail(QStringLiteral("%1 is a symbolic link").arg(m_request.destination));
            return;
        }
        if (!m_file->open(QIODevice::WriteOnly)) {
            fail(m_file->errorString());
            return;
        }
    }
    if (m_file->write(bytes) != bytes.size())
        fail(m_file->errorString());
}

void UrlTransfer::replyFinished() {
    if (m_done)
        return;
    readAvailable();
    if (m_done)
        return;
    m_response.status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (failedInTransport())
        m_response.error = m_reply->errorString();
    else if (isTorn())
        m_response.error = QStringLiteral("the body ended early");
    else if (m_file && !m_file->commit())
        m_response.error = m_file->errorString();
    finish();
}

void UrlTransfer::fail(const QString &error) {
    m_response.error = error;
    finish();
}

void UrlTransfer::finish() {
    m_done = true;
    m_file.reset();
    letGoOfReply();
    Q_EMIT finished();
}

bool UrlTransfer::failedInTransport() const {
    const QNetworkReply::NetworkError error = m_reply->error();
    if (error == QNetworkReply::NoError)
        return false;
    // The network manager also calls statuses from 400 on errors; to us they are replies.
    const bool aboutStatus =
        (error >= QNetworkReply::ContentAccessDenied &&
         error <= QNetworkReply::UnknownContentError) ||
        (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
    return !(aboutStatus && m_response.status >= 400);
}

bool UrlTransfer::isTorn() const {
    if (m_reply->hasRawHeader("Content-Encoding") || !m_reply->hasRawHeader("Content-Length"))
        return false;
    bool known = false;
    const qint64 announced = m_reply->rawHeader("Content-Length").toLongLong(&known);
    return known && announced != m_response.bodySize;
}

} // namespace velmora

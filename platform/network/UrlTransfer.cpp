// SPDX-License-Identifier: Apache-2.0
#include "UrlTransfer.h"

#include "NetworkAccess.h"
#include "OneTimeBody.h"
#include "WebLink.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <utility>

namespace velmora {

namespace {
// The most that is buffered while a file is written, so that a video is never in memory completely.
constexpr qint64 ReadAhead = 256 * 1024;
constexpr int MostRedirects = 20;
} // namespace

UrlTransfer::UrlTransfer(UrlRequest request, NetworkAccess &network, QObject *parent)
    : QObject(parent), m_request(std::move(request)), m_network(network) {}

UrlTransfer::~UrlTransfer() {
    releaseReply();
}

void UrlTransfer::releaseReply() {
    // The reply belongs to the network manager, which may go before this object does.
    if (QNetworkReply *reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

void UrlTransfer::start() {
    if (WebLink::isOnTheWeb(m_request.url)) {
        send();
        return;
    }
    m_response.error = QStringLiteral("not a web address: ") + m_request.url.toString();
    // Not MainQueue::post(): finished() belongs to this object's thread, the worker thread.
    QMetaObject::invokeMethod(this, &UrlTransfer::finish, Qt::QueuedConnection);
}

void UrlTransfer::send() {
    QNetworkRequest request(m_request.url);
    request.setSslConfiguration(m_network.tlsFor(m_request.url));
    for (const auto &[name, value] : m_request.headers)
        request.setRawHeader(name, value);
    QNetworkAccessManager &shared = m_network.shared();
    // sendCustomRequest() also for POST, because post() adds a Content-Type header.
    if (m_request.onlyOnce)
        m_reply = sendOnce(request);
    else if (m_request.method == "GET")
        m_reply = shared.get(request);
    else
        m_reply = shared.sendCustomRequest(request, m_request.method, m_request.body);
    m_reply->setReadBufferSize(ReadAhead);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &UrlTransfer::headArrived);
    connect(m_reply, &QNetworkReply::readyRead, this, &UrlTransfer::readAvailable);
    connect(m_reply, &QNetworkReply::finished, this, &UrlTransfer::replyFinished);
}

// Uses a manager of the transfer's own, which is destroyed with it.
QNetworkReply *UrlTransfer::sendOnce(QNetworkRequest &request) {
    QNetworkAccessManager *manager = m_network.fresh().release();
    manager->setParent(this);
    // When the network manager follows a redirect itself, it may send that request more than once.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    return manager->sendCustomRequest(request, m_request.method,
                                      new OneTimeBody(m_request.body, manager));
}

void UrlTransfer::headArrived() {
    m_response.status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const QUrl next = m_request.url.resolved(target);
    // A redirect that must not be followed counts as the reply.
    if (m_request.onlyOnce && !target.isEmpty() && mayFollow(next))
        follow(next);
    else if (m_request.ignoresBody)
        finish();
}

bool UrlTransfer::mayFollow(const QUrl &next) const {
    const bool isLessSafe =
        m_request.url.scheme() == QLatin1String("https") && next.scheme() != m_request.url.scheme();
    return WebLink::isOnTheWeb(next) && !isLessSafe && m_redirects < MostRedirects;
}

void UrlTransfer::follow(const QUrl &next) {
    ++m_redirects;
    m_request.url = next;
    if (m_response.status != 307 && m_response.status != 308) {
        m_request.method = "GET";
        m_request.body.clear();
    }
    m_response = {};
    m_reply->manager()->deleteLater();
    releaseReply();
    send();
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
        QDir().mkpath(QFileInfo(m_request.destination).path());
        m_file = std::make_unique<QSaveFile>(m_request.destination);
        // QSaveFile writes through a symbolic link, to a file outside of the destination's folder.
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
    if (m_reply->error() == QNetworkReply::ContentReSendError)
        m_response.error = QStringLiteral("the connection broke before a reply came");
    else if (failedInTransport())
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
    releaseReply();
    Q_EMIT finished();
}

bool UrlTransfer::failedInTransport() const {
    const QNetworkReply::NetworkError error = m_reply->error();
    if (error == QNetworkReply::NoError)
        return false;
    // The network manager also reports HTTP statuses from 400 on as errors; here they are replies.
    const bool isStatusError =
        (error >= QNetworkReply::ContentAccessDenied &&
         error <= QNetworkReply::UnknownContentError) ||
        (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
    return !(isStatusError && m_response.status >= 400);
}

bool UrlTransfer::isTorn() const {
    if (m_reply->hasRawHeader("Content-Encoding") || !m_reply->hasRawHeader("Content-Length"))
        return false;
    bool known = false;
    const qint64 announced = m_reply->rawHeader("Content-Length").toLongLong(&known);
    return known && announced != m_response.bodySize;
}

} // namespace velmora

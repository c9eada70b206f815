// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"

#include <QtCore/QObject>
#include <QtCore/QSaveFile>

class QNetworkReply;
class QNetworkRequest;

namespace velmora {

class NetworkAccess;

/// One request. Streams the body into memory, or into a temporary file that is renamed when the
/// body has arrived completely. Worker thread only.
class UrlTransfer : public QObject {
    Q_OBJECT

public:
    UrlTransfer(UrlRequest request, NetworkAccess &network, QObject *parent);
    /// Aborts the request if it is still running.
    ~UrlTransfer() override;

    void start();
    UrlResponse takeResponse() { return std::move(m_response); }

Q_SIGNALS:
    /// Emitted once, never from inside start().
    void finished();

private:
    void send();
    QNetworkReply *sendOnce(QNetworkRequest &request);
    void headArrived();
    bool mayFollow(const QUrl &next) const;
    void follow(const QUrl &next);
    void readAvailable();
    void replyFinished();
    void fail(const QString &error);
    void finish();
    void releaseReply();
    bool failedInTransport() const;
    bool isTorn() const;

    UrlRequest m_request;
    NetworkAccess &m_network;
    UrlResponse m_response;
    int m_redirects = 0;
    QNetworkReply *m_reply = nullptr;
    std::unique_ptr<QSaveFile> m_file;
    bool m_done = false;
};

} // namespace velmora

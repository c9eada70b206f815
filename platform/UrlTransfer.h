#pragma once

#include "platform/UrlSession.h"

#include <QtCore/QObject>
#include <QtCore/QSaveFile>

class QNetworkAccessManager;
class QNetworkReply;
class QSslConfiguration;

namespace velmora {

/// One request on the worker thread: streams the body into memory or into a file that takes its
/// name only when the body arrived whole.
class UrlTransfer : public QObject {
    Q_OBJECT

public:
    UrlTransfer(UrlRequest request, QObject *parent);
    /// Aborts the request if it is still under way.
    ~UrlTransfer() override;

    const QUrl &url() const { return m_request.url; }

    void start(QNetworkAccessManager &manager, const QSslConfiguration &tls);
    UrlResponse takeResponse() { return std::move(m_response); }

Q_SIGNALS:
    /// Emitted once, never from inside start().
    void finished();

private:
    void readAvailable();
    void replyFinished();
    void fail(const QString &error);
    void finish();
    void letGoOfReply();
    bool failedInTransport() const;
    bool isTorn() const;

    const UrlRequest m_request;
    UrlResponse m_response;
    QNetworkReply *m_reply = nullptr;
    std::unique_ptr<QSaveFile> m_file;
    bool m_done = false;
};

} // namespace velmora

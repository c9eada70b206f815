#include "platform/UrlSessionWorker.h"

#include "platform/ProcessRoot.h"
#include "platform/UrlTransfer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QSslCertificate>

#include <utility>

namespace velmora {

namespace {
const QEvent::Type WorkEvent = QEvent::User;
const QEvent::Type RestEvent = QEvent::Type(QEvent::User + 1);
} // namespace

UrlSessionWorker::UrlSessionWorker(UrlSession::Configuration configuration)
    : m_configuration(std::move(configuration)) {}

UrlSessionWorker::~UrlSessionWorker() = default;

void UrlSessionWorker::enqueue(Job job) {
    {
        const std::lock_guard lock(m_mutex);
        m_pending.push_back(std::move(job));
    }
    QCoreApplication::postEvent(this, new QEvent(WorkEvent));
}

void UrlSessionWorker::stop() {
    m_stopped = true;
    QCoreApplication::postEvent(this, new QEvent(WorkEvent));
}

void UrlSessionWorker::rest() {
    QCoreApplication::postEvent(this, new QEvent(RestEvent));
}

bool UrlSessionWorker::event(QEvent *event) {
    if (event->type() == RestEvent)
        letGo();
    else if (event->type() != WorkEvent)
        return QObject::event(event);
    else if (m_stopped)
        abortAll();
    else
        startNext();
    return true;
}

void UrlSessionWorker::startNext() {
    while (m_active.size() < static_cast<size_t>(m_configuration.mostAtOnce)) {
        Job job;
        {
            const std::lock_guard lock(m_mutex);
            if (m_pending.empty())
                return;
            job = std::move(m_pending.front());
            m_pending.pop_front();
        }
        auto *transfer = new UrlTransfer(std::move(job.request), this);
        m_active.push_back(transfer);
        connect(transfer, &UrlTransfer::finished, this,
                [this, transfer, done = std::move(job.done)] {
                    std::erase(m_active, transfer);
                    transfer->deleteLater();
                    if (m_stopped)
                        return;
                    done(transfer->takeResponse());
                    startNext();
                });
        QNetworkAccessManager &network = manager();
        transfer->start(network, tlsFor(transfer->url()));
    }
}

void UrlSessionWorker::abortAll() {
    {
        const std::lock_guard lock(m_mutex);
        m_pending.clear();
    }
    qDeleteAll(std::exchange(m_active, {}));
    delete std::exchange(m_manager, nullptr);
    thread()->quit();
}

void UrlSessionWorker::letGo() {
    const std::lock_guard lock(m_mutex);
    if (m_active.empty() && m_pending.empty())
        delete std::exchange(m_manager, nullptr);
}

QNetworkAccessManager &UrlSessionWorker::manager() {
    if (m_manager)
        return *m_manager;
    m_privateAuthorities = QSslCertificate::fromData(m_configuration.privateAuthorities, QSsl::Pem);
    m_manager = new QNetworkAccessManager(this);
    m_manager->setTransferTimeout(m_configuration.idleTimeoutMs);
    static const bool prepared = [] {
        ProcessRoot::dropAtExit();
        return true;
    }();
    Q_UNUSED(prepared)
    return *m_manager;
}

QSslConfiguration UrlSessionWorker::tlsFor(const QUrl &url) const {
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    const bool isPrivate =
        !m_configuration.privateHost.isEmpty() && url.host() == m_configuration.privateHost;
    if (isPrivate && !m_privateAuthorities.isEmpty())
        tls.setCaCertificates(m_privateAuthorities);
    return tls;
}

} // namespace velmora

#include "platform/UrlSessionWorker.h"

#include "platform/UrlTransfer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QSslCertificate>

#include <utility>

namespace velmora {

UrlSessionWorker::UrlSessionWorker(UrlSession::Configuration configuration)
    : m_configuration(std::move(configuration)) {}

UrlSessionWorker::~UrlSessionWorker() = default;

void UrlSessionWorker::enqueue(Job job) {
    {
        const std::lock_guard lock(m_mutex);
        m_pending.push_back(std::move(job));
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void UrlSessionWorker::stop() {
    m_stopped = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool UrlSessionWorker::event(QEvent *event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    if (m_stopped)
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
        transfer->start(manager(), m_tls);
    }
}

void UrlSessionWorker::abortAll() {
    {
        const std::lock_guard lock(m_mutex);
        m_pending.clear();
    }
    qDeleteAll(std::exchange(m_active, {}));
    delete std::exchange(m_manager, nullptr);
}

QNetworkAccessManager &UrlSessionWorker::manager() {
    if (m_manager)
        return *m_manager;
    // Made here, on the worker thread: reading the authorities takes a tenth of a second.
    m_tls = QSslConfiguration::defaultConfiguration();
    if (!m_configuration.additionalAuthorities.isEmpty()) {
        m_tls.setCaCertificates(
            QSslConfiguration::systemCaCertificates() +
            QSslCertificate::fromData(m_configuration.additionalAuthorities, QSsl::Pem));
    }
    m_manager = new QNetworkAccessManager(this);
    m_manager->setTransferTimeout(m_configuration.idleTimeoutMs);
    return *m_manager;
}

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "UrlSessionWorker.h"

#include "UrlTransfer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

#include <utility>

namespace velmora {

namespace {
const QEvent::Type WorkEvent = QEvent::User;
const QEvent::Type CloseIdleEvent = QEvent::Type(QEvent::User + 1);
} // namespace

UrlSessionWorker::UrlSessionWorker(UrlSession::Configuration configuration)
    : m_mostAtOnce(configuration.mostAtOnce), m_network(std::move(configuration)) {}

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

void UrlSessionWorker::closeIdleConnections() {
    QCoreApplication::postEvent(this, new QEvent(CloseIdleEvent));
}

bool UrlSessionWorker::event(QEvent *event) {
    if (event->type() == CloseIdleEvent)
        closeConnections();
    else if (event->type() != WorkEvent)
        return QObject::event(event);
    else if (m_stopped)
        abortAll();
    else
        startNext();
    return true;
}

void UrlSessionWorker::startNext() {
    while (m_active.size() < static_cast<size_t>(m_mostAtOnce)) {
        Job job;
        {
            const std::lock_guard lock(m_mutex);
            if (m_pending.empty())
                return;
            job = std::move(m_pending.front());
            m_pending.pop_front();
        }
        auto *transfer = new UrlTransfer(std::move(job.request), m_network, this);
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
        transfer->start();
    }
}

void UrlSessionWorker::abortAll() {
    {
        const std::lock_guard lock(m_mutex);
        m_pending.clear();
    }
    qDeleteAll(std::exchange(m_active, {}));
    m_network.closeConnections();
    thread()->quit();
}

void UrlSessionWorker::closeConnections() {
    const std::lock_guard lock(m_mutex);
    if (m_active.empty() && m_pending.empty())
        m_network.closeConnections();
}

} // namespace velmora

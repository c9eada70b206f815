// SPDX-License-Identifier: Apache-2.0
#include "UrlSessionWorker.h"

#include "BackgroundThread.h"
#include "CurlLibrary.h"
#include "Log.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

namespace velmora {

namespace {

// libcurl wakes up for its own timeouts before this.
constexpr int LongestPollMs = 600'000;

UrlResponse failure(const QString &reason) {
    UrlResponse response;
    response.error = reason;
    return response;
}

UrlResponse cancellation() {
    UrlResponse response = failure(QStringLiteral("cancelled"));
    response.isRefused = true;
    return response;
}

} // namespace

UrlSessionWorker::UrlSessionWorker(UrlSession::Configuration configuration)
    : m_configuration(std::move(configuration)) {}

UrlSessionWorker::~UrlSessionWorker() = default;

void UrlSessionWorker::enqueue(Job job) {
    const std::lock_guard lock(m_mutex);
    if (m_isStopped)
        return;
    m_pending.push_back(std::move(job));
    m_endsWhenIdle = false;
    startThread();
}

void UrlSessionWorker::wake() {
    const std::lock_guard lock(m_mutex);
    if (!m_pending.empty())
        startThread();
}

void UrlSessionWorker::cancelAll() {
    const std::lock_guard lock(m_mutex);
    // Without a thread nothing is being sent, and Configuration::isAllowed is asked before that.
    if (!m_isRunning)
        return;
    m_isCancelRequested = true;
    std::move(m_pending.begin(), m_pending.end(), std::back_inserter(m_cancelled));
    m_pending.clear();
    wakeThread();
}

void UrlSessionWorker::endWhenIdle() {
    const std::lock_guard lock(m_mutex);
    m_endsWhenIdle = true;
    wakeThread();
}

void UrlSessionWorker::stop() {
    std::deque<Job> dropped; // destroyed after the lock: that may run code of the jobs' owners
    std::unique_lock lock(m_mutex);
    m_isStopped = true;
    dropped.swap(m_pending);
    std::move(m_cancelled.begin(), m_cancelled.end(), std::back_inserter(dropped));
    m_cancelled.clear();
    wakeThread();
    m_ended.wait(lock, [this] { return !m_isRunning; });
}

void UrlSessionWorker::wakeThread() {
    if (m_multi)
        CurlLibrary::instance().multi_wakeup(m_multi);
}

void UrlSessionWorker::startThread() {
    if (m_isRunning) {
        wakeThread();
        return;
    }
    if (m_isStopped || !QCoreApplication::instance())
        return;
    QString error;
    m_isRunning = startBackgroundThread(
        "velmora-network", AtExit::Waits, [self = shared_from_this()] { self->run(); }, &error);
    if (m_isRunning)
        return;
    Log::write(QStringLiteral("there is no thread for the network: %1").arg(error));
    for (const Job &job : std::exchange(m_pending, {}))
        job.done(failure(error));
}

void UrlSessionWorker::run() {
    if (m_configuration.beforeLoading)
        m_configuration.beforeLoading();
    const CurlLibrary &curl = CurlLibrary::instance();
    if (!curl.error.isEmpty()) {
        failPending(curl.error);
    } else {
        CURLM *multi = curl.multi_init();
        {
            const std::lock_guard lock(m_mutex);
            m_multi = multi;
        }
        transferLoop(multi);
        curl.multi_cleanup(multi);
    }
    const std::lock_guard lock(m_mutex);
    m_isRunning = false;
    m_ended.notify_all();
    // Requests that were queued after the last look at the queue.
    if (!m_pending.empty())
        startThread();
}

void UrlSessionWorker::failPending(const QString &error) {
    UrlResponse response = failure(error);
    response.isRefused = m_configuration.isAllowed && !m_configuration.isAllowed();
    std::deque<Job> failed;
    {
        const std::lock_guard lock(m_mutex);
        m_isCancelRequested = false;
        failed.swap(m_cancelled);
        std::move(m_pending.begin(), m_pending.end(), std::back_inserter(failed));
        m_pending.clear();
    }
    for (const Job &job : failed)
        job.done(response);
}

void UrlSessionWorker::transferLoop(CURLM *multi) {
    Transfers active;
    while (!leavesLoop(active)) {
        cancelAllIfRequested(active, multi);
        startNext(active, multi);
        int running = 0;
        CurlLibrary::instance().multi_perform(multi, &running);
        const bool hasFinished = takeFinished(active, multi);
        if (!hasFinished)
            CurlLibrary::instance().multi_poll(multi, nullptr, 0, LongestPollMs, nullptr);
    }
    for (const auto &[transfer, job] : active)
        CurlLibrary::instance().multi_remove_handle(multi, transfer->handle());
}

bool UrlSessionWorker::leavesLoop(const Transfers &active) {
    const std::lock_guard lock(m_mutex);
    const bool isIdle = active.empty() && m_pending.empty() && !m_isCancelRequested;
    if (!m_isStopped && !(m_endsWhenIdle && isIdle))
        return false;
    m_multi = nullptr;
    return true;
}

void UrlSessionWorker::cancelAllIfRequested(Transfers &active, CURLM *multi) {
    std::deque<Job> unsent;
    {
        const std::lock_guard lock(m_mutex);
        if (!std::exchange(m_isCancelRequested, false))
            return;
        unsent.swap(m_cancelled);
    }
    for (const auto &[transfer, job] : active) {
        CurlLibrary::instance().multi_remove_handle(multi, transfer->handle());
        job.done(transfer->cancelledResponse());
    }
    active.clear();
    for (const Job &job : unsent)
        job.done(cancellation());
}

void UrlSessionWorker::startNext(Transfers &active, CURLM *multi) {
    while (active.size() < size_t(m_configuration.mostAtOnce)) {
        Job job;
        {
            const std::lock_guard lock(m_mutex);
            if (m_isStopped || m_pending.empty())
                return;
            job = std::move(m_pending.front());
            m_pending.pop_front();
        }
        auto transfer = std::make_unique<UrlTransfer>(job.request, m_configuration);
        if (!transfer->prepare()) {
            job.done(transfer->takeResponse());
            continue;
        }
        CurlLibrary::instance().multi_add_handle(multi, transfer->handle());
        active.emplace_back(std::move(transfer), std::move(job));
    }
}

bool UrlSessionWorker::takeFinished(Transfers &active, CURLM *multi) {
    bool hasFinished = false;
    int left = 0;
    while (const CURLMsg *message = CurlLibrary::instance().multi_info_read(multi, &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        const CURLcode result = message->data.result;
        const auto found = std::find_if(active.begin(), active.end(), [message](const auto &entry) {
            return entry.first->handle() == message->easy_handle;
        });
        if (found == active.end())
            continue;
        hasFinished = true;
        CurlLibrary::instance().multi_remove_handle(multi, found->first->handle());
        if (found->first->goesOnAfter(result)) {
            CurlLibrary::instance().multi_add_handle(multi, found->first->handle());
            continue;
        }
        const auto [transfer, job] = std::move(*found);
        active.erase(found);
        job.done(transfer->takeResponse());
    }
    return hasFinished;
}

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "adserver/RequestLog.h"

#include "adserver/PathPattern.h"

#include <algorithm>
#include <chrono>

namespace velmora::adserver {

QList<RecordedRequest> RequestLog::requests(const QString &pathPattern) const {
    const std::lock_guard lock(m_mutex);
    QList<RecordedRequest> found;
    std::copy_if(m_requests.begin(), m_requests.end(), std::back_inserter(found),
                 [&](const auto &request) { return matchesPath(pathPattern, request.path()); });
    return found;
}

int RequestLog::count(const QString &pathPattern) const {
    const std::lock_guard lock(m_mutex);
    return countLocked(pathPattern);
}

bool RequestLog::waitForCount(const QString &pathPattern, int count, int timeoutMs) const {
    std::unique_lock lock(m_mutex);
    return m_arrived.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                              [&] { return countLocked(pathPattern) >= count; });
}

void RequestLog::clear() {
    const std::lock_guard lock(m_mutex);
    m_requests.clear();
}

void RequestLog::append(const RecordedRequest &request) {
    const std::lock_guard lock(m_mutex);
    m_requests.append(request);
    m_arrived.notify_all();
}

int RequestLog::countLocked(const QString &pathPattern) const {
    return static_cast<int>(
        std::count_if(m_requests.begin(), m_requests.end(), [&](const auto &request) {
            return matchesPath(pathPattern, request.path());
        }));
}

} // namespace velmora::adserver

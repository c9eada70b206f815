// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/RecordedRequest.h"

#include <condition_variable>
#include <mutex>

namespace velmora::adserver {

/// Every request that the server has received, in order of arrival. A request is in the log before
/// its answer begins, and also when it hangs, is reset or is incomplete. Bytes that are not an HTTP
/// request are added after the server has refused them with status 400. All members may be called
/// from any thread. Paths are patterns as in matchesPath(): "/lookup", "/event*", "*".
class RequestLog {
public:
    /// A copy of the requests whose path matches the pattern.
    QList<RecordedRequest> requests(const QString &pathPattern = QStringLiteral("*")) const;

    /// How many requests match the pattern. Does not wait; on a GUI thread poll this instead of
    /// calling waitForCount().
    int count(const QString &pathPattern = QStringLiteral("*")) const;

    /// Blocks the calling thread until at least `count` requests match the pattern, at most
    /// `timeoutMs` milliseconds. True if they arrived. Runs no event loop, so the calling thread
    /// must not wait for a request that it sends through one.
    bool waitForCount(const QString &pathPattern, int count, int timeoutMs) const;

    /// Removes all requests.
    void clear();

    /// Adds a request. Called by the server.
    void append(const RecordedRequest &request);

private:
    int countLocked(const QString &pathPattern) const;

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_arrived;
    QList<RecordedRequest> m_requests;
};

} // namespace velmora::adserver

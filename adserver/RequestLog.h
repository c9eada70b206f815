// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/RecordedRequest.h"

#include <condition_variable>
#include <mutex>

namespace velmora::adserver {

/// Every request the server has received, in order of arrival. A request is in the log before its
/// answer begins, and also when it hangs, is reset or breaks off. What is no HTTP request at all is
/// added too, as far as it came, but only after the server has refused it with status 400. All
/// members may be called from any thread. Paths are patterns as in matchesPath(): "/lookup",
/// "/event*", "*".
class RequestLog {
public:
    /// A copy of all requests, or of those whose path fits the pattern.
    QList<RecordedRequest> requests(const QString &pathPattern = QStringLiteral("*")) const;

    /// How many requests fit the pattern. Does not wait; on a GUI thread poll this instead of
    /// calling waitForCount().
    int count(const QString &pathPattern = QStringLiteral("*")) const;

    /// Blocks the calling thread until at least `count` requests fit the pattern, at most
    /// `timeoutMs` milliseconds. True if they arrived. Runs no event loop, so it must not wait
    /// for a request that the calling thread itself has yet to send from one.
    bool waitForCount(const QString &pathPattern, int count, int timeoutMs) const;

    /// Forgets everything recorded so far.
    void clear();

    /// Adds a request. For the server.
    void append(const RecordedRequest &request);

private:
    int countLocked(const QString &pathPattern) const;

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_arrived;
    QList<RecordedRequest> m_requests;
};

} // namespace velmora::adserver

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "EventQueue.h"

namespace velmora {

struct UrlResponse;

/// Delivers event URLs: each is requested once by GET, and any reply counts as delivered. A URL
/// that could not be delivered is added to a queue, which is kept in the host's settings and sent
/// again after the next successful delivery; never by itself. One per process. Main thread only,
/// except logEventWithURL(), addEventURL() and logAllStack(), which any thread may call.
///
/// No event is lost: once logEventWithURL() has returned on the main thread, the URL is either
/// delivered or in the settings (EventQueue), even if the process is killed. It is delivered twice
/// only if the process ended before the answer to its first request was recorded.
class AdsEventLogger {
public:
    /// The process's one logger. The first call, which loads the stored queue, must come from the
    /// main thread.
    static AdsEventLogger &sharedInstance();

    AdsEventLogger();
    /// Ends the requests under way; their URLs join the queue. Closes the shared URL session.
    ~AdsEventLogger();

    /// Sends one event. A URL that is neither http nor https is refused and not queued. On the main
    /// thread the URL is stored before this returns, which takes as long as a write of the
    /// settings.
    void logEventWithURL(const QUrl &url);

    /// Queues a URL, unless it is empty, and stores the queue in either case.
    void addEventURL(const QUrl &url);

    /// Sends every queued URL, also those that other processes of the host have queued. Each is
    /// removed from the queue when its request starts.
    void logAllStack();

    const QList<QUrl> &eventStack() const { return m_queue.urls(); }
    /// Replaces the queue. The next change stores it.
    void setEventStack(const QList<QUrl> &urls) { m_queue.setUrls(urls); }

private:
    void log(const QUrl &url);
    void request(EventQueue::Number number, const QUrl &url);
    void answered(EventQueue::Number number, const UrlResponse &response);

    EventQueue m_queue;
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QList>
#include <QtCore/QUrl>

#include <memory>

namespace velmora {

/// Delivers event URLs: each is requested once by GET, and any reply counts as delivered. A URL
/// that could not be delivered is added to a queue, which is kept in the host's settings and sent
/// again after the next successful delivery. One per process. Main thread only, except
/// logEventWithURL(), addEventURL() and logAllStack(), which any thread may call.
///
/// The queue is stored after every change; while it holds more than a hundred URLs, at most twice a
/// second. When the host changes its application name, the queue that is stored under the new name
/// is put in front of this one.
class AdsEventLogger {
public:
    /// The process's one logger. The first call, which loads the stored queue, must come from the
    /// main thread.
    static AdsEventLogger &sharedInstance();

    AdsEventLogger();
    /// Stores changes that are not stored yet.
    ~AdsEventLogger();

    /// Sends one event. A URL that is neither http nor https is refused and not queued.
    void logEventWithURL(const QUrl &url);

    /// Queues a URL, unless it is empty, and stores the queue in either case.
    void addEventURL(const QUrl &url);

    /// Sends every queued URL. Each is removed from the queue when its request starts.
    void logAllStack();

    const QList<QUrl> &eventStack() const { return m_eventStack; }
    void setEventStack(const QList<QUrl> &urls) { m_eventStack = urls; }

    /// Converts a queue to the form in which it is stored, and back. Unreadable bytes give an empty
    /// queue.
    static QByteArray archived(const QList<QUrl> &urls);
    static QList<QUrl> unarchived(const QByteArray &bytes);

private:
    void send(const QUrl &url);
    void followName();
    void stackChanged();
    void store();

    QString m_place; // the settings that hold the queue; empty while the application has no name
    QList<QUrl> m_eventStack;
    TimerPtr m_storeTimer;
    bool m_unstored = false;
};

} // namespace velmora

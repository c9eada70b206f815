// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QList>
#include <QtCore/QUrl>

#include <memory>

namespace velmora {

/// Delivers event URLs: each is requested once by GET, and any reply counts as delivered. What
/// could not be delivered waits in a queue that survives the process and is sent again after
/// the next success. One per process. Main thread, except logEventWithURL() and addEventURL(),
/// which may be called from any.
///
/// The queue is stored whenever it changes; the changes of one flush share a store write, and
/// while more than a hundred URLs wait, so do the changes within half a second. When the
/// application takes another name, the queue that is stored under it joins this one.
class AdsEventLogger {
public:
    /// The process's one logger; the first call loads the stored queue.
    static AdsEventLogger &sharedInstance();

    AdsEventLogger();
    /// Stores what has not been stored yet.
    ~AdsEventLogger();

    /// Sends one event. An address that is not on the web is refused and never queued.
    void logEventWithURL(const QUrl &url);

    /// Queues a URL, if there is one, and stores the queue.
    void addEventURL(const QUrl &url);

    /// Sends every URL that is queued at this moment; each leaves the queue when its request
    /// starts.
    void logAllStack();

    const QList<QUrl> &eventStack() const { return m_eventStack; }
    void setEventStack(const QList<QUrl> &urls) { m_eventStack = urls; }

    /// The stored form of a queue, and back; anything else than an archive gives none.
    static QByteArray archived(const QList<QUrl> &urls);
    static QList<QUrl> unarchived(const QByteArray &bytes);

private:
    void send(const QUrl &url);
    void followName();
    void stackChanged();
    void store();

    QString m_place; // where the queue is stored
    QList<QUrl> m_eventStack;
    TimerPtr m_storeTimer;
    bool m_unstored = false;
};

} // namespace velmora

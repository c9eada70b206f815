// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "EventStore.h"
#include "StorePace.h"

#include <QtCore/QMap>

namespace velmora {

/// The events of this process that are not delivered: the queue of those to send again, and those
/// that are being sent. Both are stored (EventStore), so that none is lost however the process
/// ends.
///
/// A new event is stored before the call returns. That an event was delivered or has failed is
/// stored later (StorePace), with pauses while there are more than a hundred events: until then it
/// is stored as being sent, so that it can come twice but cannot be lost. Without an application
/// name, and where the settings can't be written, the events are kept in memory.
///
/// When the host changes its application name, the stored queue moves to the new name's settings,
/// behind the queue that is stored there. Main thread only.
class EventQueue {
public:
    /// Identifies an event that is being sent.
    using Number = quint64;

    /// Loads the queue, and adds to it what processes that have ended were sending.
    EventQueue();
    /// Adds what is being sent to the queue and stores it.
    ~EventQueue();

    /// The queue, oldest first: as it was stored at the last change, with what is not stored yet.
    const QList<QUrl> &urls() const { return m_urls; }
    /// Replaces the queue. The next change stores it.
    void setUrls(const QList<QUrl> &urls);

    /// Adds an event to the queue unless it is empty, and stores the queue in either case.
    void append(const QUrl &url);

    /// Stores an event as being sent. Call this before its request can leave.
    Number begin(const QUrl &url);
    /// Takes all events off the queue and stores them as being sent. None when the queue is in use
    /// by another process.
    QMap<Number, QUrl> beginAll();
    /// An event was delivered.
    void delivered(Number number);
    /// An event was not delivered: it joins the queue.
    void failed(Number number);

    /// True when as many events are being sent as the queue may hold.
    bool hasTooManyUnderWay() const { return m_underWay.size() >= EventStore::LargestQueue; }

private:
    void followPlace();
    void moveTo(std::unique_ptr<EventStore> store);
    void add(const QUrl &url);
    QList<QUrl> merged(const QList<QUrl> &stored) const;
    QList<QUrl> ownUrls() const;
    bool isLarge() const;
    void store();
    void setStored(const QList<QUrl> &urls);

    std::unique_ptr<EventStore> m_store; // null while the application has no name
    QList<QUrl> m_urls;
    qsizetype m_unstored = 0;      // so many at the end of m_urls are not in the stored queue
    bool m_isReplaced = false;     // m_urls replaces the stored queue
    bool m_mustStore = false;      // the queue is to be stored, even unchanged
    QMap<Number, QUrl> m_underWay; // in the order in which they were started
    Number m_lastNumber = 0;
    StorePace m_pace;
};

} // namespace velmora

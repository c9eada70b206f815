// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SharedSettings.h"

#include <QtCore/QList>
#include <QtCore/QUrl>

#include <functional>
#include <memory>

namespace velmora {

/// The undelivered events of a host in its settings. All processes of the host share one queue
/// ("eventStackData"). What a process is sending at the moment is kept under a key of its own
/// ("eventsUnderWay/PID-START"), so that it joins the queue when the process has ended without an
/// answer. Main thread only.
class EventStore {
public:
    struct Events {
        QList<QUrl> queue;    ///< the queue, oldest first
        QList<QUrl> underWay; ///< what this process is sending
    };

    static constexpr qsizetype LargestQueue = 10'000;

    explicit EventStore(std::unique_ptr<QSettings> settings);

    QString place() const { return m_settings.place(); }

    /// The queue as it is stored now.
    QList<QUrl> queue();

    /// Adds to the queue what processes that have ended were sending, and removes their keys.
    void adopt();

    /// Reads the queue, has it changed, and writes the result at once, all under a lock that the
    /// processes share. `underWay` is empty at the call; what the change puts there replaces what
    /// is stored. A result that can't be written holds for this run.
    /// @return false, with nothing changed, when the lock was not to be had within a short time
    bool change(const std::function<void(Events &events)> &change);

    /// Stores what this process is sending, even when the lock is not to be had.
    void setUnderWay(const QList<QUrl> &urls);

    /// Drops the oldest events of a queue that is too large, and logs that.
    static QList<QUrl> bounded(QList<QUrl> queue);

    /// Converts a queue to the form in which it is stored, and back. Unreadable bytes give an empty
    /// queue, and addresses that are not on the web are left out.
    static QByteArray archived(const QList<QUrl> &urls);
    static QList<QUrl> unarchived(const QByteArray &bytes);

private:
    QStringList abandonedKeys();
    void setOwn(const QList<QUrl> &urls);
    void write();

    SharedSettings m_settings;
    const QString m_ownKey;
    QByteArray m_lastBytes; // what m_lastQueue was read from
    QList<QUrl> m_lastQueue;
    bool m_hasOwn = false; // something is stored under m_ownKey
    bool m_canWrite = true;
};

} // namespace velmora

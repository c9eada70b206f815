// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <chrono>

namespace velmora {

/// An exclusive lock between processes: the advisory lock of a file (flock), which the system
/// releases when the process ends, however it ends. The file stays. Any thread.
///
/// QLockFile is not used where events are counted: it flushes its file to the disk for every lock,
/// and a process that is killed while it locks may leave an empty file, which blocks the others for
/// half a minute (awaitQtLock()).
class FileLock {
public:
    enum class Result {
        Locked,
        Busy,  ///< another process, or another FileLock of this one, holds it
        Failed ///< the file can't be opened
    };

    /// Makes the file, and does not lock yet.
    explicit FileLock(const QString &path);
    /// Unlocks.
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// Locks, and waits up to `patience` while the lock is held elsewhere.
    Result tryLock(std::chrono::milliseconds patience);

    /// A short text in the file, which the processes that lock it can leave for each other.
    QByteArray note() const;
    void setNote(const QByteArray &note);

    /// Waits up to `patience` while there is a QLockFile with this path. If it is still empty then,
    /// its process was killed before it had written its number, and the file is removed. QLockFile
    /// itself would sleep for a tenth of a second, or for half a minute if the file is empty. Any
    /// thread.
    static void awaitQtLock(const QString &path, std::chrono::milliseconds patience);

private:
    FileLock(const QString &path, int flags);
    bool isAt(const QString &path) const;

    const int m_descriptor;
};

} // namespace velmora

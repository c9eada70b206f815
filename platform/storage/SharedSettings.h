// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FileLock.h"

#include <QtCore/QSettings>

#include <memory>

namespace velmora {

/// A QSettings object for changes that depend on what is stored, while other processes change the
/// same file. Take the lock, read, set values and write, then release the lock. Values that could
/// not be written are returned all the same, and the next write() writes them too. Main thread.
class SharedSettings {
public:
    explicit SharedSettings(std::unique_ptr<QSettings> settings);

    /// The settings file.
    QString place() const { return m_settings->fileName(); }
    /// The file to lock for a change: `FileLock lock(settings.lockPath())`.
    QString lockPath() const;

    /// What is stored now; an invalid QVariant when the key is absent.
    QVariant value(const QString &key);
    /// The stored keys "GROUP/NAME" of a group.
    QStringList keys(const QString &group);

    /// Sets a value, which write() writes; an invalid one removes the key.
    void setValue(const QString &key, const QVariant &value);

    /// Writes all values that were set, as one change of the file.
    /// @return false when the file can't be written
    bool write();

    /// Removes the lock file that a process which was killed while QSettings made it has left.
    /// QSettings would wait half a minute for it. Call this before QSettings writes. Any thread.
    static void removeDeadLock(const QString &place);

private:
    std::unique_ptr<QSettings> m_settings;
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FileLock.h"

#include <QtCore/QDateTime>
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

    /// Sets a value, which write() writes; an invalid one removes the key. When another thread uses
    /// the settings meanwhile, QSettings may write it before.
    void setValue(const QString &key, const QVariant &value);

    /// Writes the values that were set.
    /// @return false when the file can't be written
    bool write();

    /// Waits a moment while another process writes the file. Call this before QSettings writes,
    /// since QSettings waits far longer than such a write takes, above all when the other process
    /// was killed (FileLock::awaitQtLock()). Any thread.
    static void awaitOthers(const QString &place);

private:
    void noteTime();

    std::unique_ptr<QSettings> m_settings;
    QDateTime m_newest; // the file's newest time so far
};

} // namespace velmora

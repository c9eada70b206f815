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

    /// Locks the settings until the result is destroyed, and reads them again if another process
    /// has locked them since.
    /// @return null when another process holds the lock for longer than `patience`. An object also
    ///         when there can be no lock file: then no process can write the settings
    std::unique_ptr<FileLock> lock(std::chrono::milliseconds patience) {
        return lock(*m_settings, patience);
    }
    /// The same for any QSettings object. Any thread.
    static std::unique_ptr<FileLock> lock(QSettings &settings, std::chrono::milliseconds patience);

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
    std::unique_ptr<QSettings> m_settings;
};

} // namespace velmora

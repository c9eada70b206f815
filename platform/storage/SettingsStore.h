// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "RateLimiter.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <memory>
#include <mutex>

class QSettings;

namespace velmora {

/// The application's persistent settings: QSettings in the native format, for the current user,
/// under the organisation and application name of the moment (the application name stands in
/// where there is no organisation). Without an application name there is no place that is the
/// application's own, so values stay in memory until it has one. Any thread.
class SettingsStore {
public:
    /// What becomes of a value of this run when the application takes another name.
    enum class OnRename {
        GoesAlong, ///< it is written under the new name as well
        Moves      ///< it leaves the old name when its owner has stored it under the new one
    };

    SettingsStore();
    ~SettingsStore();

    /// What is stored now, also by another process; what could not be stored is remembered. An
    /// invalid QVariant when the key is absent.
    QVariant value(const QString &key);

    /// Stores a value and flushes; an invalid one removes the key.
    void setValue(const QString &key, const QVariant &value,
                  OnRename onRename = OnRename::GoesAlong);

    /// Names where values are stored; empty while there is no such place.
    QString place();

    /// What could not be stored since the last call, and why; a line each.
    QStringList takeComplaints();

private:
    struct Names {
        QString organization;
        QString application;
        bool operator==(const Names &) const = default;
    };
    struct OwnValue {
        QVariant value;
        OnRename onRename = OnRename::GoesAlong;
        Names names;
        bool isStored = false;
    };

    static Names namesNow();
    void follow();
    bool isDue(const OwnValue &own) const;
    bool hasDue() const;
    bool storeDue();
    static std::unique_ptr<QSettings> settingsOf(const Names &names);
    void complain(const QString &reason);

    std::mutex m_mutex;
    Names m_names;
    std::unique_ptr<QSettings> m_settings;
    QHash<QString, OwnValue> m_own; // what this run wrote
    QStringList m_complaints;
    RateLimiter m_retries;
};

} // namespace velmora

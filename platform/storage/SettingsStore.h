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
/// under the current organisation and application name. Without an organisation name its domain is
/// used, and without a domain the application name. Without an application name QSettings would
/// store values for all applications of the organisation, so they stay in memory until there is
/// one. When the application's name changes, the values that this run has written are written under
/// the new name too. Any thread.
class SettingsStore {
public:
    SettingsStore();
    ~SettingsStore();

    /// The value that is stored now, also by another process, or that this run could not store so
    /// far; an invalid QVariant when the key is absent.
    QVariant value(const QString &key);

    /// Stores a value and flushes it to disk; an invalid value removes the key. A value that can't
    /// be stored is kept in memory, and storing it is tried again at later calls.
    /// @return whether it is stored now
    bool setValue(const QString &key, const QVariant &value);

    /// The file (or, on other systems, the native location) of the values; empty while the
    /// application has no name.
    QString place();

    /// The settings themselves, without the values that this store keeps in memory; null while the
    /// application has no name.
    std::unique_ptr<QSettings> open();

    /// One line for each time that a value could not be stored since the last call, with the
    /// reason.
    QStringList takeComplaints();

private:
    struct Names {
        QString organization;
        QString application;
        bool operator==(const Names &) const = default;
    };
    struct OwnValue {
        QVariant value;
        bool isStored = false;
    };

    static Names namesNow();
    void follow();
    bool hasDue() const;
    bool mayRetry();
    bool storeDue();
    static std::unique_ptr<QSettings> settingsOf(const Names &names);
    void complain(const QString &reason);

    std::mutex m_mutex;
    Names m_names;
    std::unique_ptr<QSettings> m_settings;
    QHash<QString, OwnValue> m_own; // the values that this run has written
    QStringList m_complaints;
    RateLimiter m_retries;
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SettingsStore.h"

namespace velmora {

/// The process's one SettingsStore. Logs what that can't store. Any thread.
class HostSettings {
public:
    static QVariant value(const QString &key);
    /// @return false when the value holds for this run only
    static bool setValue(const QVariant &value, const QString &key);
    /// See SettingsStore::place().
    static QString place();
    /// See SettingsStore::open().
    static std::unique_ptr<QSettings> open();
};

} // namespace velmora

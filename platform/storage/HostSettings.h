// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SettingsStore.h"

namespace velmora {

/// The process's one settings store. What it cannot store is said in the log. Any thread.
class HostSettings {
public:
    static QVariant value(const QString &key);
    static void setValue(const QVariant &value, const QString &key,
                         SettingsStore::OnRename onRename = SettingsStore::OnRename::GoesAlong);
    /// Names where values are stored; empty while there is no such place.
    static QString place();
};

} // namespace velmora

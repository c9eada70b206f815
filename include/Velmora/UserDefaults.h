// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace velmora {

/// The host's persistent settings store: QSettings in the native format, for the current user,
/// under the host's organisation and application name (the application name stands in where
/// the host has set no organisation). Any thread, at any time.
///
/// The store follows the names: when the host sets or changes one after the first call, later
/// calls go to the store of the new name, and what this run has written goes there too. Before
/// the application has a name (it has one as soon as there is an application object), and when
/// the store cannot be written, values hold for the run and are written as soon as they can be;
/// the system log says so in debug mode.
class VELMORA_EXPORT UserDefaults {
public:
    /// The process's store, the one that VLMUserDefaults() returns.
    static UserDefaults &standard();

    /// The stored value, also one that another process of the host has stored meanwhile, or an
    /// invalid QVariant when the key is absent.
    QVariant object(const QString &key) const;

    /// Stores a value and flushes the store to disk before it returns.
    void setObject(const QVariant &value, const QString &key);

    /// Removes a key and flushes.
    void removeObject(const QString &key);
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace velmora {

/// The host's persistent settings: QSettings in the native format, for the current user, under the
/// host's organisation and application name. Without an organisation name its domain is used, and
/// without a domain the application name. Any thread, also before there is an application object.
///
/// When the host sets or changes a name after the first call, later calls use the settings of the
/// new name, and the values that this run has written are copied there.
///
/// Without an application name, and when the settings can't be written, values are kept in memory,
/// are returned by object(), and are written when that becomes possible. The log says so in debug
/// mode. (QApplication sets an application name, if the host has not.)
class VELMORA_EXPORT UserDefaults {
public:
    /// The host's settings; the same as VLMUserDefaults(). The reference is valid as long as the
    /// application object exists.
    static UserDefaults &standard();

    /// The value of a key; an invalid QVariant when there is none. Finds also what another process
    /// of the host has stored meanwhile.
    QVariant object(const QString &key) const;

    /// Stores a value, and flushes the settings to disk before it returns. An invalid QVariant
    /// removes the key.
    void setObject(const QVariant &value, const QString &key);

    /// Removes a key, and flushes the settings to disk before it returns.
    void removeObject(const QString &key);
};

} // namespace velmora

#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>

namespace velmora {

/// The host's persistent settings store: QSettings in the native format, for the current user,
/// under the host's organisation and application name (the application name stands in where
/// the host has set no organisation). Any thread.
class VELMORA_EXPORT UserDefaults {
public:
    UserDefaults();
    ~UserDefaults();

    /// The process's store, the one that VLMUserDefaults() returns.
    static UserDefaults &standard();

    /// The stored value, or an invalid QVariant when the key is absent.
    QVariant object(const QString &key) const;

    /// Stores a value and flushes the store to disk before it returns.
    void setObject(const QVariant &value, const QString &key);

    /// Removes a key and flushes.
    void removeObject(const QString &key);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace velmora

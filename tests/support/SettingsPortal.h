// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QVariant>
#include <QtDBus/QDBusVirtualObject>

namespace velmora::test {

/// A session bus of its own, to which this process's environment points from then on, with a
/// stand-in for the desktop's settings portal. At most one for each process, since Qt keeps its
/// connection to the session bus.
class SettingsPortal : public QDBusVirtualObject {
    Q_OBJECT

public:
    SettingsPortal();
    ~SettingsPortal() override;

    bool isReady() const { return m_isReady; }

    /// Changes a setting, as the user does in the desktop's settings.
    void set(const char *space, const char *key, const QVariant &value);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override;

private:
    QProcess m_bus;
    QMap<QString, QVariantMap> m_settings;
    bool m_isReady = false;
};

} // namespace velmora::test

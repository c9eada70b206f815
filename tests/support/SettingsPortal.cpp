// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SettingsPortal.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusVariant>

namespace velmora::test {

namespace {

const QString Connection = QStringLiteral("settings portal");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");

} // namespace

SettingsPortal::SettingsPortal() {
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"),
                 QStringLiteral("--print-address"), QStringLiteral("--address=unix:tmpdir=/tmp")});
    if (!m_bus.waitForReadyRead(20000))
        return;
    const QByteArray address = m_bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(address), Connection);
    m_isReady = bus.registerVirtualObject(Path, this) &&
                bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
}

SettingsPortal::~SettingsPortal() {
    QDBusConnection::disconnectFromBus(Connection);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    m_bus.terminate();
    m_bus.waitForFinished(5000);
}

void SettingsPortal::set(const char *space, const char *key, const QVariant &value) {
    m_settings[QLatin1String(space)][QLatin1String(key)] = value;
    QDBusMessage change = QDBusMessage::createSignal(
        Path, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    change.setArguments(
        {QLatin1String(space), QLatin1String(key), QVariant::fromValue(QDBusVariant(value))});
    QDBusConnection(Connection).send(change);
}

QString SettingsPortal::introspect(const QString &) const {
    return {};
}

bool SettingsPortal::handleMessage(const QDBusMessage &message, const QDBusConnection &bus) {
    if (message.member() != QLatin1String("ReadAll"))
        return false;
    QMap<QString, QVariantMap> answer;
    const QStringList wanted = message.arguments().constFirst().toStringList();
    for (const QString &space : wanted)
        answer[space] = m_settings.value(space);
    bus.send(message.createReply(QVariant::fromValue(answer)));
    return true;
}

} // namespace velmora::test

// SPDX-License-Identifier: Apache-2.0
#include "PortalMotion.h"

#include "BackgroundThread.h"
#include "MainQueue.h"
#include "ProcessRoot.h"

#include <QtCore/QFile>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <algorithm>

namespace velmora {

namespace {

const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");

struct Setting {
    const char *space;
    const char *key;
    bool (*isReduced)(const QVariant &value);
};

// The first is the common one, which older desktops lack. KDE's is a text: the factor of the length
// of all animations.
const Setting Settings[] = {
    {"org.freedesktop.appearance", "reduced-motion",
     [](const QVariant &value) { return value.toUInt() == 1; }},
    {"org.gnome.desktop.interface", "enable-animations",
     [](const QVariant &value) { return value.isValid() && !value.toBool(); }},
    {"org.kde.kdeglobals.KDE", "AnimationDurationFactor",
     [](const QVariant &value) {
         bool isNumber = false;
         return value.toDouble(&isNumber) <= 0 && isNumber;
     }},
};

// Without one, libdbus may start a bus of its own.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

std::unique_ptr<DesktopMotion> DesktopMotion::watch() {
    return std::make_unique<PortalMotion>();
}

PortalMotion::PortalMotion() {
    if (hasSessionBus())
        connectToBus();
}

bool PortalMotion::isReduced() const {
    return std::any_of(m_reduced.begin(), m_reduced.end(), [](bool reduced) { return reduced; });
}

// Connecting blocks until the bus has answered. Afterwards the connection is shared by the process,
// and asking is asynchronous.
void PortalMotion::connectToBus() {
    // Lets Qt make what it needs for D-Bus; the thread must end before exit() destroys that.
    const QDBusConnection unconnected(QStringLiteral("velmora"));
    ProcessRoot::registerAtExit();
    startBackgroundThread(
        "velmora-dbus", AtExit::Waits,
        [this, alive = std::weak_ptr(m_alive)] {
            if (!QDBusConnection::sessionBus().isConnected())
                return;
            MainQueue::post([this, alive] {
                if (!alive.expired())
                    ask();
            });
        },
        nullptr);
}

void PortalMotion::ask() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    // From any sender: with a name, Qt would wait for the bus to tell who has it.
    bus.connect(QString(), Path, Interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("ReadAll"));
    QStringList spaces;
    for (const Setting &setting : Settings)
        spaces.append(QLatin1String(setting.space));
    question.setArguments({spaces});
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, &PortalMotion::answered);
}

void PortalMotion::answered(QDBusPendingCallWatcher *answer) {
    answer->deleteLater();
    const QDBusMessage reply = answer->reply();
    if (reply.type() != QDBusMessage::ReplyMessage ||
        reply.signature() != QLatin1String("a{sa{sv}}"))
        return;
    QMap<QString, QVariantMap> all;
    reply.arguments().constFirst().value<QDBusArgument>() >> all;
    for (const Setting &setting : Settings) {
        const QVariantMap space = all.value(QLatin1String(setting.space));
        if (space.contains(QLatin1String(setting.key)))
            store(QLatin1String(setting.space), QLatin1String(setting.key),
                  space.value(QLatin1String(setting.key)));
    }
}

void PortalMotion::settingChanged(const QString &space, const QString &key,
                                  const QDBusVariant &value) {
    store(space, key, value.variant());
}

void PortalMotion::store(const QString &space, const QString &key, const QVariant &value) {
    const bool before = isReduced();
    for (size_t i = 0; i < m_reduced.size(); ++i) {
        if (space == QLatin1String(Settings[i].space) && key == QLatin1String(Settings[i].key))
            m_reduced[i] = Settings[i].isReduced(value);
    }
    if (isReduced() != before)
        Q_EMIT changed();
}

} // namespace velmora

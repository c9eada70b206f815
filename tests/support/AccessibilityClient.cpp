// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AccessibilityClient.h"

#include "tests/support/Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusVariant>
#include <QtGui/QAccessible>

#include <utility>

namespace velmora::test {

namespace {

const auto Accessible = QStringLiteral("org.a11y.atspi.Accessible");
const auto Connection = QStringLiteral("velmora-accessibility-client");
const AccessibilityClient::Object Registry{QStringLiteral("org.a11y.atspi.Registry"),
                                           QStringLiteral("/org/a11y/atspi/accessible/root")};

// Numbers of AtspiStateType.
enum State { Checked = 4, Focused = 12, Modal = 16, Sensitive = 24, Showing = 25 };

bool has(quint64 states, State state) {
    return states >> state & 1;
}

QDBusMessage answer(const QDBusConnection &bus, const QDBusMessage &question) {
    const QDBusPendingCall pending = bus.asyncCall(question, 10000);
    eventually([&] { return pending.isFinished(); });
    return pending.reply();
}

QDBusConnection connectToAccessibilityBus() {
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    const QDBusMessage address = answer(QDBusConnection::sessionBus(), question);
    return QDBusConnection::connectToBus(address.arguments().value(0).toString(), Connection);
}

} // namespace

AccessibilityClient::AccessibilityClient() : m_bus(connectToAccessibilityBus()) {
    m_bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                  QStringLiteral("StateChanged"), this, SLOT(stateChanged(QDBusMessage)));
    const Object registry{Registry.service, QStringLiteral("/org/a11y/atspi/registry")};
    for (const char *event : {"object:state-changed:showing", "object:state-changed:focused"})
        call(registry, Registry.service, QStringLiteral("RegisterEvent"),
             {QString::fromLatin1(event)});
    // Qt registers the process at its first event.
    QAccessibleEvent event(qApp, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    eventually([this] { return !application().path.isEmpty(); });
}

AccessibilityClient::~AccessibilityClient() {
    QDBusConnection::disconnectFromBus(Connection);
}

QDBusMessage AccessibilityClient::call(const Object &object, const QString &interface,
                                       const QString &method, const QVariantList &arguments) {
    QDBusMessage question =
        QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    question.setArguments(arguments);
    return answer(m_bus, question);
}

QVariant AccessibilityClient::property(const Object &object, const QString &interface,
                                       const QString &name) {
    const QDBusMessage reply = call(object, QStringLiteral("org.freedesktop.DBus.Properties"),
                                    QStringLiteral("Get"), {interface, name});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

AccessibilityClient::Object AccessibilityClient::application() {
    const QList<Object> all = children(Registry);
    for (const Object &each : all) {
        if (name(each) == QCoreApplication::applicationName())
            return each;
    }
    return {};
}

QList<AccessibilityClient::Object> AccessibilityClient::children(const Object &object) {
    QList<Object> found;
    const QDBusMessage reply = call(object, Accessible, QStringLiteral("GetChildren"));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return found;
    const auto list = reply.arguments().value(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        found.append({service, path.path()});
    }
    list.endArray();
    return found;
}

QString AccessibilityClient::role(const Object &object) {
    return call(object, Accessible, QStringLiteral("GetRoleName")).arguments().value(0).toString();
}

QString AccessibilityClient::name(const Object &object) {
    return property(object, Accessible, QStringLiteral("Name")).toString();
}

quint64 AccessibilityClient::states(const Object &object) {
    const QDBusMessage reply = call(object, Accessible, QStringLiteral("GetState"));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return 0;
    const auto words = qdbus_cast<QList<uint>>(reply.arguments().value(0));
    return words.value(0) | quint64(words.value(1)) << 32;
}

QStringList AccessibilityClient::dump(const Object &object, int depth) {
    QStringList lines;
    const quint64 now = states(object);
    // The application itself has no state.
    if (depth > 0 && !has(now, Showing))
        return lines;
    const QList<Object> below = children(object);
    for (const Object &each : below)
        lines += dump(each, depth + 1);
    const QString called = name(object);
    if (depth == 0 || (called.isEmpty() && lines.isEmpty()))
        return lines;
    QString line = QString((depth - 1) * 2, QLatin1Char(' ')) + role(object);
    if (!called.isEmpty())
        line += QStringLiteral(" \"%1\"").arg(called);
    const QString more = property(object, Accessible, QStringLiteral("Description")).toString();
    if (!more.isEmpty())
        line += QStringLiteral(" (%1)").arg(more);
    for (const auto &[state, word] : {std::pair{Modal, "modal"}, std::pair{Checked, "checked"},
                                      std::pair{Focused, "focused"}}) {
        if (has(now, state))
            line += QStringLiteral(", ") + QLatin1String(word);
    }
    if (!has(now, Sensitive))
        line += QStringLiteral(", unavailable");
    const QVariant value =
        property(object, QStringLiteral("org.a11y.atspi.Value"), QStringLiteral("CurrentValue"));
    if (value.isValid())
        line += QStringLiteral(", %1 %").arg(value.toDouble());
    lines.prepend(line);
    return lines;
}

AccessibilityClient::Object AccessibilityClient::find(const QString &role, const QString &name) {
    return findIn(application(), role, name);
}

AccessibilityClient::Object AccessibilityClient::findIn(const Object &object, const QString &role,
                                                        const QString &name) {
    const QList<Object> below = children(object);
    for (const Object &each : below) {
        if (!has(states(each), Showing))
            continue;
        if (this->role(each) == role && this->name(each) == name)
            return each;
        const Object found = findIn(each, role, name);
        if (!found.path.isEmpty())
            return found;
    }
    return {};
}

bool AccessibilityClient::press(const Object &object) {
    const QDBusMessage reply =
        call(object, QStringLiteral("org.a11y.atspi.Action"), QStringLiteral("DoAction"), {0});
    handleEvents();
    return reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
}

bool AccessibilityClient::grabFocus(const Object &object) {
    const QDBusMessage reply =
        call(object, QStringLiteral("org.a11y.atspi.Component"), QStringLiteral("GrabFocus"));
    handleEvents();
    return reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
}

bool AccessibilityClient::setText(const Object &object, const QString &text) {
    const QDBusMessage reply = call(object, QStringLiteral("org.a11y.atspi.EditableText"),
                                    QStringLiteral("SetTextContents"), {text});
    return reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
}

void AccessibilityClient::stateChanged(const QDBusMessage &event) {
    const QVariantList details = event.arguments();
    if (details.value(1).toInt() == 1)
        m_events.append({details.value(0).toString(), {event.service(), event.path()}});
}

QStringList AccessibilityClient::heard() {
    handleEvents();
    // An answer comes after the events that were sent before it.
    application();
    QStringList told;
    const auto events = std::exchange(m_events, {});
    for (const auto &[state, object] : events) {
        const QString is = role(object);
        if (state == QLatin1String("showing") && is == QLatin1String("notification"))
            told.append(name(object));
        else if (state == QLatin1String("focused"))
            told.append(QStringLiteral("focus: %1 %2").arg(is, name(object)));
    }
    return told;
}

} // namespace velmora::test

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVariantList>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace velmora::test {

/// Asks and works this process through AT-SPI, as a screen reader does. Each call handles events
/// until the answer is there, because the main thread is also the one that answers.
class AccessibilityClient : public QObject {
    Q_OBJECT

public:
    /// An object of an application. Invalid without a path.
    struct Object {
        QString service;
        QString path;
    };

    AccessibilityClient();
    ~AccessibilityClient() override;

    /// This process; invalid while it is not on the accessibility bus.
    Object application();
    QList<Object> children(const Object &object);

    /// The shown objects below one: a line for each, indented, with the role, the name and the
    /// states that a screen reader would speak. What has neither a name nor something to speak in
    /// it is left out.
    QStringList dump(const Object &object, int depth = 0);
    QStringList dump() { return dump(application()); }
    /// The first shown object with a role and a name.
    Object find(const QString &role, const QString &name);

    /// @return false when the object refuses or is not there any more
    bool press(const Object &object);
    bool grabFocus(const Object &object);
    bool setText(const Object &object, const QString &text);

    /// What a screen reader speaks by itself since the last call: the names of notifications when
    /// they are shown, and "focus: ROLE NAME".
    QStringList heard();

private Q_SLOTS:
    void stateChanged(const QDBusMessage &event);

private:
    QDBusMessage call(const Object &object, const QString &interface, const QString &method,
                      const QVariantList &arguments = {});
    QVariant property(const Object &object, const QString &interface, const QString &name);
    QString role(const Object &object);
    QString name(const Object &object);
    quint64 states(const Object &object);
    Object findIn(const Object &object, const QString &role, const QString &name);

    QDBusConnection m_bus;
    /// The states that became true, and of which objects.
    QList<std::pair<QString, Object>> m_events;
};

} // namespace velmora::test

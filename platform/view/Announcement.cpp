// SPDX-License-Identifier: Apache-2.0
#include "Announcement.h"

#include <QtWidgets/QAccessibleWidget>

namespace velmora {

namespace {

QAccessibleInterface *accessibleNotification(const QString &, QObject *object) {
    auto *announcement = qobject_cast<Announcement *>(object);
    return announcement ? new QAccessibleWidget(announcement, QAccessible::Notification) : nullptr;
}

} // namespace

Announcement::Announcement(QWidget *parent) : QWidget(parent) {
    // Qt keeps one entry, however often it is installed.
    QAccessible::installFactory(accessibleNotification);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    shrink();
    hide();
}

void Announcement::say(const QString &text) {
    hide();
    setAccessibleName(text);
    if (text.isEmpty())
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(this, text);
    QAccessible::updateAccessibility(&event);
#else
    // Screen readers speak a notification when it is shown.
    show();
#endif
}

} // namespace velmora

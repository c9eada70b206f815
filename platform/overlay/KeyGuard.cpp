// SPDX-License-Identifier: Apache-2.0
#include "KeyGuard.h"

#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

namespace velmora {

void KeyGuard::begin(QWidget *superview, int key) {
    new KeyGuard(superview, key);
}

KeyGuard::KeyGuard(QWidget *superview, int key) : QObject(superview), m_key(key) {
    qApp->installEventFilter(this);
}

bool KeyGuard::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride: {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (!qobject_cast<QWindow *>(watched) || key.key() != m_key)
            return false;
        if (!key.isAutoRepeat())
            end();
        const bool isNextPress = !key.isAutoRepeat() && event->type() != QEvent::KeyRelease;
        if (isNextPress)
            return false;
        event->accept(); // else Qt looks for a shortcut
        return true;
    }
    case QEvent::ApplicationDeactivate:
        end();
        return false;
    default:
        return false;
    }
}

void KeyGuard::end() {
    qApp->removeEventFilter(this);
    deleteLater();
}

} // namespace velmora

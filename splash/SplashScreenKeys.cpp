// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenKeys.h"

#include "Animator.h"

#include <QtGui/QKeyEvent>

namespace velmora {

SplashScreenKeys::SplashScreenKeys(QWidget *root, QAbstractButton *closeButton)
    : QObject(root), m_root(root), m_closeButton(closeButton) {
    root->installEventFilter(this);
}

bool SplashScreenKeys::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_root || event->type() != QEvent::KeyPress)
        return false;
    const auto *press = static_cast<QKeyEvent *>(event);
    const QKeyCombination key = press->keyCombination();
    if (press->isAutoRepeat())
        return false;
    if (key == QKeyCombination(Qt::Key_Escape)) {
        if (m_closeButton && !Animator::isHidden(m_closeButton))
            m_closeButton->click();
        return true;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        auto *focused = qobject_cast<QAbstractButton *>(m_root->focusWidget());
        if (focused && focused->isVisible() && !Animator::isHidden(focused))
            focused->click();
        return true;
    }
    return false;
}

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenKeys.h"

#include "AdArea.h"
#include "Animator.h"

#include <initializer_list>

namespace velmora {

SplashScreenKeys::SplashScreenKeys(QWidget *root, QAbstractButton *closeButton,
                                   QAbstractButton *soundButton)
    : QObject(root), m_root(root), m_closeButton(closeButton), m_soundButton(soundButton) {
    root->installEventFilter(this);
    const auto controls = root->findChildren<QAbstractButton *>();
    for (QAbstractButton *control : controls)
        control->installEventFilter(this);
}

bool SplashScreenKeys::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_root)
        return event->type() == QEvent::KeyPress && takesKey(*static_cast<QKeyEvent *>(event));
    // Not when the root view is hidden, and its controls with it.
    if (event->type() == QEvent::Hide && watched == m_root->focusWidget() &&
        m_root->focusWidget()->isHidden()) {
        QWidget *stop = firstStop();
        (stop ? stop : m_root)->setFocus(Qt::OtherFocusReason);
    }
    return false;
}

bool SplashScreenKeys::takesKey(const QKeyEvent &press) {
    const QKeyCombination key = press.keyCombination();
    if (press.isAutoRepeat())
        return false;
    if (key == QKeyCombination(Qt::Key_Escape)) {
        if (m_closeButton && !Animator::isHidden(m_closeButton))
            m_closeButton->click();
        return true;
    }
    // The link is the first one in Qt's order: QWidget::setTabOrder() ignores it until it accepts
    // the focus.
    const QWidget *focus = m_root->focusWidget();
    QWidget *stop = firstStop();
    if (key == QKeyCombination(Qt::Key_Tab) && stop && (!focus || focus == m_root)) {
        stop->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        auto *focused = qobject_cast<QAbstractButton *>(m_root->focusWidget());
        if (focused && focused->isVisible() && !Animator::isHidden(focused))
            AdArea::clickByKey(focused);
        return true;
    }
    return false;
}

QWidget *SplashScreenKeys::firstStop() const {
    for (QAbstractButton *button : {m_closeButton.data(), m_soundButton.data()}) {
        if (button && !Animator::isHidden(button))
            return button;
    }
    return nullptr;
}

} // namespace velmora

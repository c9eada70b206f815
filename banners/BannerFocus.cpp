// SPDX-License-Identifier: Apache-2.0
#include "BannerFocus.h"

#include "AdArea.h"
#include "MainQueue.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace velmora {

namespace {

bool isOfWindow(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

BannerFocus::BannerFocus(QWidget *banner, const QList<QAbstractButton *> &controls)
    : QObject(banner) {
    for (QAbstractButton *control : controls) {
        if (!control)
            continue;
        m_controls.append(control);
        control->installEventFilter(this);
    }
    connect(qApp, &QApplication::focusChanged, this, &BannerFocus::focusChanged);
    setInTabOrder(true);
    // Afterwards, since Qt ignores widgets that take no focus; and from the last one, since it does
    // not move a widget behind the last one of its own children.
    for (qsizetype i = m_controls.size() - 1; i > 0; --i)
        QWidget::setTabOrder(m_controls.first(), m_controls.at(i));
}

void BannerFocus::setInTabOrder(bool isInTabOrder) {
    for (const auto &control : std::as_const(m_controls)) {
        if (!control)
            continue;
        control->setFocusPolicy(isInTabOrder ? Qt::TabFocus : Qt::NoFocus);
        // The QML item Banner looks at its banner again after a repaint.
        control->update();
        if (!isInTabOrder)
            control->clearFocus();
    }
}

bool BannerFocus::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        focusGained(static_cast<QWidget *>(watched), static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::FocusOut:
        if (!isOfWindow(static_cast<QFocusEvent *>(event)->reason()))
            m_wasEntered = false;
        return false;
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
            return false;
        if (!key->isAutoRepeat())
            AdArea::clickByKey(static_cast<QAbstractButton *>(watched));
        return true;
    }
    default:
        return false;
    }
}

bool BannerFocus::isControl(const QWidget *widget) const {
    return std::any_of(m_controls.begin(), m_controls.end(),
                       [widget](const auto &each) { return widget && each == widget; });
}

void BannerFocus::focusChanged(const QWidget *old, QWidget *now) {
    if (!old || isControl(old) || !isControl(now))
        return;
    // Later, because Qt moves the focus before the widget counts as hidden or disabled.
    MainQueue::post(this, [this, old = QPointer<const QWidget>(old), now = QPointer<QWidget>(now)] {
        if (!now || (old && old->isVisible() && old->isEnabled()))
            return;
        m_wasEntered = false;
        now->clearFocus();
    });
}

void BannerFocus::focusGained(QWidget *control, Qt::FocusReason reason) {
    if (!isOfWindow(reason))
        m_wasEntered = true;
    else if (!m_wasEntered)
        MainQueue::post(control, [control] { control->clearFocus(); });
}

} // namespace velmora

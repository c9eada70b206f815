// SPDX-License-Identifier: Apache-2.0
#include "ButtonAccessible.h"

#include "Animator.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "ColoredButtonCell.h"
#include "LinkArea.h"
#include "MainQueue.h"
#include "PlayButton.h"
#include "RemoveAdsButton.h"

#include <QtCore/QPointer>
#include <QtCore/QVariant>

namespace velmora {

namespace {

constexpr const char *Parent = "accessibleParent";

QAccessible::Role roleOf(const QAbstractButton *button) {
    if (qobject_cast<const LinkArea *>(button) || qobject_cast<const BannerImageView *>(button))
        return QAccessible::Link;
    return button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

QAccessibleInterface *accessibleButton(const QString &, QObject *object) {
    const bool isOurs =
        qobject_cast<LinkArea *>(object) || qobject_cast<BannerImageView *>(object) ||
        qobject_cast<CloseButtonCell *>(object) || qobject_cast<PlayButton *>(object) ||
        qobject_cast<RemoveAdsButton *>(object) || qobject_cast<ColoredButtonCell *>(object);
    return isOurs ? new ButtonAccessible(static_cast<QAbstractButton *>(object)) : nullptr;
}

} // namespace

void ButtonAccessible::install() {
    QAccessible::installFactory(accessibleButton);
}

void ButtonAccessible::setParent(QWidget *button, QWidget *parent) {
    button->setProperty(Parent, QVariant::fromValue(QPointer<QWidget>(parent)));
}

ButtonAccessible::ButtonAccessible(QAbstractButton *button)
    : QAccessibleWidget(button, roleOf(button)) {}

QAbstractButton *ButtonAccessible::button() const {
    return static_cast<QAbstractButton *>(widget());
}

bool ButtonAccessible::isUsable() const {
    if (!button() || !button()->isVisible() || !button()->isEnabled())
        return false;
    // A link area that opens nothing takes no focus.
    if (qobject_cast<LinkArea *>(button()) && button()->focusPolicy() == Qt::NoFocus)
        return false;
    for (const QWidget *each = button(); each; each = each->parentWidget()) {
        if (Animator::isHidden(each))
            return false;
    }
    return true;
}

QAccessibleInterface *ButtonAccessible::parent() const {
    const auto set = widget() ? widget()->property(Parent).value<QPointer<QWidget>>() : nullptr;
    return set ? QAccessible::queryAccessibleInterface(set) : QAccessibleWidget::parent();
}

QString ButtonAccessible::text(QAccessible::Text kind) const {
    const QString text = QAccessibleWidget::text(kind);
    return text.isEmpty() && kind == QAccessible::Name && button() ? button()->text() : text;
}

QAccessible::State ButtonAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    if (!button())
        return state;
    state.invisible = !isUsable();
    state.pressed = button()->isDown();
    state.checkable = button()->isCheckable();
    state.checked = button()->isChecked();
    return state;
}

QStringList ButtonAccessible::actionNames() const {
    QStringList names{pressAction()};
    return names << QAccessibleWidget::actionNames();
}

void ButtonAccessible::doAction(const QString &name) {
    if (!isUsable())
        return;
    if (name != pressAction()) {
        QAccessibleWidget::doAction(name);
        return;
    }
    // Later, because the host may destroy anything in what a click calls.
    MainQueue::post(button(), [target = button()] {
        QAccessibleInterface *found = QAccessible::queryAccessibleInterface(target);
        if (found && !found->state().invisible)
            target->click();
    });
}

} // namespace velmora

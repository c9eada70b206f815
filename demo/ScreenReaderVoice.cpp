// SPDX-License-Identifier: Apache-2.0
#include "demo/ScreenReaderVoice.h"

#include "demo/Text.h"

#include <QtCore/QEvent>
#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace demo {

namespace {

QString roleInWords(QAccessible::Role role) {
    static const QHash<int, Text::Key> words{
        {QAccessible::Button, Text::RoleButton},
        {QAccessible::CheckBox, Text::RoleCheckBox},
        {QAccessible::ComboBox, Text::RoleComboBox},
        {QAccessible::Dialog, Text::RoleDialog},
        {QAccessible::EditableText, Text::RoleEditor},
        {QAccessible::Graphic, Text::RolePicture},
        {QAccessible::Link, Text::RoleLink},
        {QAccessible::List, Text::RoleList},
        {QAccessible::ProgressBar, Text::RoleProgressBar},
        {QAccessible::Slider, Text::RoleSlider},
    };
    const auto found = words.find(role);
    return found == words.end() ? QString() : Text::of(*found);
}

bool isAnnounced(const QAccessibleInterface *object) {
    return object->role() == QAccessible::Dialog || object->role() == QAccessible::Notification;
}

} // namespace

ScreenReaderVoice::ScreenReaderVoice() {
    qApp->installEventFilter(this);
}

bool ScreenReaderVoice::eventFilter(QObject *watched, QEvent *event) {
    const bool isFocus = event->type() == QEvent::FocusIn;
    if ((isFocus || event->type() == QEvent::Show) && watched->isWidgetType())
        speakLater(static_cast<QWidget *>(watched), isFocus);
    return false;
}

void ScreenReaderVoice::speakLater(QWidget *widget, bool hasFocus) {
    const auto speak = [this, hasFocus, widget = QPointer<QWidget>(widget)] {
        QAccessibleInterface *object =
            widget && widget->isVisible() ? QAccessible::queryAccessibleInterface(widget) : nullptr;
        if (!object || !(hasFocus || isAnnounced(object)))
            return;
        const QString words = sentence(object);
        if (!words.isEmpty())
            Q_EMIT said(words);
    };
    QMetaObject::invokeMethod(this, speak, Qt::QueuedConnection);
}

QString ScreenReaderVoice::sentence(QAccessibleInterface *object) {
    QStringList words{object->text(QAccessible::Name)};
    if (words.first().isEmpty())
        return {};
    words.append(roleInWords(object->role()));
    const QAccessible::State state = object->state();
    if (state.checkable)
        words.append(Text::of(state.checked ? Text::StateIsChecked : Text::StateIsNotChecked));
    if (state.disabled)
        words.append(Text::of(Text::StateIsDisabled));
    words.append(object->text(QAccessible::Value));
    words.append(object->text(QAccessible::Description));
    words.removeAll(QString());
    return words.join(QStringLiteral(", "));
}

} // namespace demo

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class QAccessibleInterface;
class QWidget;

namespace demo {

/// Puts into words what a screen reader would say: the control that gets the focus, and dialogs and
/// notifications that appear. Real screen readers say more, and say it in their own words. It reads
/// the accessible interfaces by itself, so that it works also where the desktop has no screen
/// reader: Qt sends accessibility events only to a real one. Listens as long as it exists.
class ScreenReaderVoice : public QObject {
    Q_OBJECT

public:
    ScreenReaderVoice();

    /// Name, role and state of an object, as one sentence; empty when it has no name.
    static QString sentence(QAccessibleInterface *object);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void said(const QString &sentence);

private:
    /// Speaks of a widget when it is still there and shown on a later turn of the main loop.
    void speakLater(QWidget *widget, bool hasFocus);
};

} // namespace demo

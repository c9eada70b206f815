// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>

namespace velmora {

/// The keys of a splash screen, beside those that its buttons know themselves: Return and Enter
/// click the button that has the focus, Escape clicks the close button once that is shown, and Tab
/// goes to the close button first, before that is shown to the sound button. When the
/// control that has the focus is hidden, the focus goes to the close button, else to the sound
/// button, else to the root view, and never to the ad's link. Owned by the root view. Main thread
/// only.
class SplashScreenKeys : public QObject {
    Q_OBJECT

public:
    SplashScreenKeys(QWidget *root, QAbstractButton *closeButton, QAbstractButton *soundButton);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takesKey(const QKeyEvent &press);
    QWidget *firstStop() const;

    QWidget *m_root;
    QPointer<QAbstractButton> m_closeButton;
    QPointer<QAbstractButton> m_soundButton;
};

} // namespace velmora

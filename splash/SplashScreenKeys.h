// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

namespace velmora {

/// What the keyboard does in a splash screen beyond its buttons' own keys: Return works the
/// control that has the focus, Escape the close button once that is shown. No other key gets
/// through to what lies underneath. Owned by the root view. Main thread only.
class SplashScreenKeys : public QObject {
    Q_OBJECT

public:
    SplashScreenKeys(QWidget *root, QAbstractButton *closeButton);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_root;
    QPointer<QAbstractButton> m_closeButton;
};

} // namespace velmora

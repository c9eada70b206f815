// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

namespace velmora {

/// The keys of a splash screen, beside those that its buttons know themselves: Return and Enter
/// click the button that has the focus, Escape clicks the close button once that is shown. Owned
/// by the root view. Main thread only.
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

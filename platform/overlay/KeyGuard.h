// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>

namespace velmora {

/// Drops the repetitions of the key that has closed an overlay, as long as the user holds it. They
/// would otherwise be typed into what was covered, or close a dialog.
///
/// Ends with the key's release, its next press, or when the application is deactivated. The
/// superview owns it. Main thread only.
class KeyGuard : public QObject {
    Q_OBJECT

public:
    /// @param key of type Qt::Key
    static void begin(QWidget *superview, int key);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    KeyGuard(QWidget *superview, int key);
    void end();

    int m_key;
};

} // namespace velmora

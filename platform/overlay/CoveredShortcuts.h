// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace velmora {

/// Stops the shortcuts of a window whose content is covered: those of actions, menus, buttons and
/// of Qt Quick. Shortcuts of the whole application (Qt::ApplicationShortcut) and those that quit it
/// act as ever, and so do the shortcuts of other windows.
///
/// Qt sends a shortcut to its owner, which may be any object, so this filters the events of the
/// whole application from begin() to end(). The host's actions stay as they are. Main thread only.
class CoveredShortcuts : public QObject {
    Q_OBJECT

public:
    explicit CoveredShortcuts(QWidget *superview) : m_superview(superview) {}

    void begin();
    void end();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool actsInWindow(const QObject *owner) const;

    QPointer<QWidget> m_superview;
};

} // namespace velmora

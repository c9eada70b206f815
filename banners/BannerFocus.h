// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

namespace velmora {

/// Makes the controls of a banner reachable by Tab, and lets Return press them. Main thread only.
///
/// Qt gives the focus to the next widget that Tab reaches also when a window without a focus widget
/// becomes active, and when the widget that has the focus is hidden or disabled. A banner does not
/// keep it: Space in a game, or pressed twice on a button, would otherwise press the close button.
class BannerFocus : public QObject {
    Q_OBJECT

public:
    /// @param banner   the banner's view, which owns this
    /// @param controls in tab order; nulls are skipped
    BannerFocus(QWidget *banner, const QList<QAbstractButton *> &controls);

    /// Default: true.
    void setInTabOrder(bool isInTabOrder);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void focusGained(QWidget *control, Qt::FocusReason reason);
    void focusChanged(const QWidget *old, QWidget *now);
    bool isControl(const QWidget *widget) const;

    QList<QPointer<QAbstractButton>> m_controls;
    /// Whether the user has moved the focus into the banner.
    bool m_wasEntered = false;
};

} // namespace velmora

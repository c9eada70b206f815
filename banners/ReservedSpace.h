// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QMargins>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Space that the content of a host's view leaves free at its bottom, by an addition to a margin:
/// to the widget's contents margins, within which a layout places its items and a QFrame its frame,
/// or to the viewport margins of a scroll area. Main thread only.
class ReservedSpace {
public:
    /// @param superview the view that the banner lies in
    explicit ReservedSpace(QWidget *superview) : m_superview(superview) {}

    /// Null once the view has been destroyed.
    const QWidget *superview() const { return m_superview; }

    /// Sets how much is reserved, at most two thirds of the view's height. With 0 the view gets
    /// back the margin that it would have without this object. A change that the host has made to
    /// the margin meanwhile is kept. When the view's content does not follow its margins, the host
    /// is told once.
    void setHeight(int height);

private:
    void setBottomMargin(int added);
    void refuse();

    QPointer<QWidget> m_superview;
    /// Has the margin: the view or, in a tab widget, the stack of its pages.
    QPointer<QWidget> m_holder;
    int m_added = 0;
    bool m_isRefused = false;
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "RateLimiter.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Keeps the focus of a window in a view that covers a part of the window's content: a covered
/// widget never keeps it while the view is shown. At the end it returns to where it was. A focus
/// elsewhere in the window stays there, and the window is never activated. Main thread only.
class OverlayFocus : public QObject {
    Q_OBJECT

public:
    OverlayFocus(QWidget *view, QWidget *superview);

    /// Tells which part of the superview the view covers. Widgets outside it keep the focus.
    void setFrame(const QRect &frame) { m_frame = frame; }

    /// Starts when the view is shown: moves the focus into the view if a covered widget has it.
    /// @param holder the widget that has the focus for the view, in the host's window: the view
    ///               itself or a key proxy
    void begin(QWidget *holder);
    /// Replaces the holder. If the view has the focus, the new holder gets it.
    void setHolder(QWidget *holder);
    /// Ends when the view is hidden: returns the focus if the view has it.
    void end();

    /// Whether the view has the focus of the window.
    bool isInView() const;
    /// Whether a widget is the holder or lies in the view.
    bool belongsToView(const QWidget *widget) const;
    /// Whether the view covers a widget of the host's.
    bool isCovered(const QWidget *widget) const;

    /// The widget that begin() or setHolder() was called with; null once destroyed.
    QWidget *holder() const { return m_holder; }
    /// In the superview's coordinates.
    QRect frame() const { return m_frame; }

    /// Checks, on a later turn of the main loop, whether a covered widget has the focus, and moves
    /// it into the view then.
    void checkLater();

private:
    void changed(QWidget *old, QWidget *now);
    void check();
    bool shouldTakeFocus() const;

    QPointer<QWidget> m_view;
    QPointer<QWidget> m_superview;
    QPointer<QWidget> m_holder;
    // The host's widget that the focus returns to, and the last widget in the view that had it.
    QPointer<QWidget> m_previous;
    QPointer<QWidget> m_inner;
    QRect m_frame;
    RateLimiter m_limit;
    bool m_active = false;
    bool m_checking = false;
};

} // namespace velmora

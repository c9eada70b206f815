// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "RateLimiter.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// The focus of a window, part of whose content a view covers: it is in the view instead of in
/// something covered, and back where it was at the end. The window's activation and a focus that
/// is elsewhere in the window are left alone. Main thread only.
class OverlayFocus : public QObject {
    Q_OBJECT

public:
    OverlayFocus(QWidget *view, QWidget *superview);

    /// What the view covers of the superview; widgets beside it keep their focus.
    void setFrame(const QRect &frame) { m_frame = frame; }

    /// The view is shown from now on.
    /// @param holder what has the focus for the view, in the same window: the view itself or a
    ///               key proxy
    void begin(QWidget *holder);
    /// The holder is another; the focus goes over to it if the view has it.
    void setHolder(QWidget *holder);
    void end();

    /// Whether the view has the focus of the window.
    bool isInView() const;

    /// Looks on a later turn whether the focus is in something covered.
    void checkSoon();

private:
    void changed(QWidget *old, QWidget *now);
    void check();
    bool belongsToView(const QWidget *widget) const;
    bool isCovered(const QWidget *widget) const;
    bool wants() const;

    QPointer<QWidget> m_view;
    QPointer<QWidget> m_superview;
    QPointer<QWidget> m_holder;
    // Where the focus goes back to, and the last widget in the view that had it.
    QPointer<QWidget> m_previous;
    QPointer<QWidget> m_inner;
    QRect m_frame;
    RateLimiter m_limit;
    bool m_active = false;
    bool m_checking = false;
};

} // namespace velmora

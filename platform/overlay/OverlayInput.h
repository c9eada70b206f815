// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayFocus.h"
#include "TimeSource.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <optional>

namespace velmora {

/// Keeps keys, input methods, drags and tool tips from what an overlay covers. Keys go to the
/// overlay's view, and those that the view does not use are dropped. An uncovered widget of the
/// window that has the focus keeps its keys; those that it does not use are dropped, too.
///
/// This filters the events of the whole application while the overlay is shown, because keys go to
/// whichever native window or input object of the host has the focus. Main thread only.
class OverlayInput : public QObject {
    Q_OBJECT

public:
    /// @param focus which widgets belong to the view, and which ones it covers; must outlive this
    OverlayInput(QWidget *view, QWidget *superview, const OverlayFocus &focus);

    /// Starts when the view has been shown and has the focus.
    void begin();
    /// Ends when the view is hidden and the focus has returned.
    void end();

    /// How long, in seconds from now, a press may still be the second one of a double click that
    /// began on the overlay; zero when it was not clicked just now.
    double doubleClickTimeLeft() const;

    /// The key that the user holds since it was pressed on the overlay, of type Qt::Key; 0 for
    /// none.
    int heldKey() const { return m_heldKey; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takesKeyOfWindow(QWindow *window, QEvent *event);
    bool takesUnusedKey(const QObject *watched, QEvent *event) const;
    bool takesInputMethod(const QObject *watched, QEvent *event) const;
    bool takesDrag(QWindow *window, QEvent *event) const;
    void noteKey(const QEvent *event);
    void notePress(const QWindow *window, const QEvent *event);

    bool coversFocusOf(const QWindow *window) const;
    bool coversInputOf(const QObject *object) const;
    QRect globalFrame() const;
    void updateInputMethod() const;

    QPointer<QWidget> m_view;
    QPointer<QWidget> m_superview;
    const OverlayFocus &m_focus;
    std::optional<TimeSource::Duration> m_lastPress;
    bool m_isForwarding = false;
    int m_heldKey = 0;
};

} // namespace velmora

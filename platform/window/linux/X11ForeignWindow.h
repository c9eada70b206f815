// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ForeignWindow.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QPointer>

#include <xcb/xcb.h>

namespace velmora {

/// A ForeignWindow under X11: selects the window's structure and focus events, which any client of
/// the X server may do, and reads them from Qt's connection. Main thread only.
class X11ForeignWindow : public ForeignWindow, private QAbstractNativeEventFilter {
public:
    X11ForeignWindow(QWindow *window, xcb_connection_t *connection);
    ~X11ForeignWindow() override;

    QRect geometry() const override;
    bool isVisible() const override { return m_isMapped; }
    bool isActive() const override { return m_isActive; }

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    void selectEvents();
    void readState();
    bool isFocusInside() const;
    void setActive(bool active);

    QPointer<QWindow> m_window;
    xcb_connection_t *m_connection;
    xcb_window_t m_id;
    QSize m_pixels;
    bool m_isMapped = false;
    bool m_isActive = false;
};

} // namespace velmora

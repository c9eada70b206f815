// SPDX-License-Identifier: Apache-2.0
#include "X11ForeignWindow.h"

#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <memory>
#include <utility>

namespace velmora {

namespace {

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
template<class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

template<class Reply>
ReplyPointer<Reply> owned(Reply *reply) {
    return ReplyPointer<Reply>(reply);
}

// The events of a pointer that is over the window, and those of a grab, do not move the keyboard
// focus.
bool movesFocus(const xcb_focus_in_event_t &event) {
    const bool isGrab = event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
    return !isGrab && event.detail < XCB_NOTIFY_DETAIL_POINTER;
}

} // namespace

X11ForeignWindow::X11ForeignWindow(QWindow *window, xcb_connection_t *connection)
    : m_window(window), m_connection(connection), m_id(xcb_window_t(window->winId())) {
    selectEvents();
    readState(); // after that, so that no change in between is missed
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11ForeignWindow::~X11ForeignWindow() {
    if (QCoreApplication *application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

void X11ForeignWindow::selectEvents() {
    const auto attributes = owned(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, m_id), nullptr));
    // Qt may have selected events of its own for the window, which this must not replace.
    const uint32_t events = (attributes ? attributes->your_event_mask : 0) |
                            XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(m_connection, m_id, XCB_CW_EVENT_MASK, &events);
}

void X11ForeignWindow::readState() {
    const auto attributes = owned(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, m_id), nullptr));
    const auto geometry =
        owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_id), nullptr));
    if (!attributes || !geometry)
        return;
    m_pixels = {geometry->width, geometry->height};
    m_isMapped = attributes->map_state != XCB_MAP_STATE_UNMAPPED;
    m_isActive = isFocusInside();
}

bool X11ForeignWindow::isFocusInside() const {
    const auto focus =
        owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    xcb_window_t window = focus ? focus->focus : XCB_NONE;
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != m_id) {
        const auto tree = owned(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        window = tree ? tree->parent : XCB_NONE;
    }
    return window == m_id;
}

QRect X11ForeignWindow::geometry() const {
    return m_window ? QRect(QPoint(), m_pixels / m_window->devicePixelRatio()) : QRect();
}

void X11ForeignWindow::setActive(bool active) {
    if (std::exchange(m_isActive, active) != active)
        Q_EMIT changed();
}

bool X11ForeignWindow::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    constexpr int SentByClient = 0x80;
    switch (event->response_type & ~SentByClient) {
    case XCB_CONFIGURE_NOTIFY: {
        const auto &configured = *reinterpret_cast<const xcb_configure_notify_event_t *>(event);
        const QSize pixels(configured.width, configured.height);
        if (configured.window == m_id && std::exchange(m_pixels, pixels) != pixels)
            Q_EMIT changed();
        break;
    }
    case XCB_MAP_NOTIFY:
        if (reinterpret_cast<const xcb_map_notify_event_t *>(event)->window == m_id &&
            !std::exchange(m_isMapped, true))
            Q_EMIT changed();
        break;
    case XCB_UNMAP_NOTIFY:
        if (reinterpret_cast<const xcb_unmap_notify_event_t *>(event)->window == m_id &&
            std::exchange(m_isMapped, false))
            Q_EMIT changed();
        break;
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t *>(event)->window == m_id) {
            m_isMapped = false;
            Q_EMIT closed();
        }
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT: {
        const auto &focus = *reinterpret_cast<const xcb_focus_in_event_t *>(event);
        const bool isIn = (event->response_type & ~SentByClient) == XCB_FOCUS_IN;
        // To or from a child of the window: it stays active.
        if (focus.event == m_id && movesFocus(focus) && focus.detail != XCB_NOTIFY_DETAIL_INFERIOR)
            setActive(isIn);
        break;
    }
    default:
        break;
    }
    return false;
}

std::unique_ptr<ForeignWindow> ForeignWindow::watch(QWindow *window) {
    auto *x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (window->type() != Qt::ForeignWindow || !x11)
        return nullptr;
    return std::make_unique<X11ForeignWindow>(window, x11->connection());
}

} // namespace velmora

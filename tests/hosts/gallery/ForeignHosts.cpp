// SPDX-License-Identifier: Apache-2.0
#include "Gallery.h"
#include "Hosts.h"

#include <Velmora/Velmora.h>

#include <QtCore/QSocketNotifier>
#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <xcb/xcb.h>

namespace gallery {

namespace {

// A window that is not Qt's: made through a connection to the X server of its own, as another
// toolkit does, and turned into a QWindow.
class ForeignHostWindow : public QObject, public HostWindow {
public:
    ForeignHostWindow()
        : m_connection(xcb_connect(nullptr, nullptr)),
          m_events(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read) {
        xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_id = xcb_generate_id(m_connection);
        const uint32_t values[] = {Marker.rgb() & 0xffffff, XCB_EVENT_MASK_BUTTON_PRESS |
                                                                XCB_EVENT_MASK_FOCUS_CHANGE |
                                                                XCB_EVENT_MASK_EXPOSURE};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_id, screen->root, 0, 0,
                          uint16_t(Size.width()), uint16_t(Size.height()), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
        xcb_map_window(m_connection, m_id);
        xcb_flush(m_connection);
        connect(&m_events, &QSocketNotifier::activated, this, &ForeignHostWindow::readEvents);
        m_window.reset(QWindow::fromWinId(m_id));
    }

    ~ForeignHostWindow() override {
        m_window.reset();
        xcb_disconnect(m_connection);
    }

    void setTitle(const QString &) override {}
    void addSplashScreen(bool) override { Velmora::addSplashScreenToWindow(m_window.get()); }
    void addBanner() override { Velmora::addBannerForWindow(m_window.get()); }
    QWindow *native() const override { return m_window.get(); }
    bool isExposed() const override { return m_isExposed; }
    bool isActive() const override { return m_isActive; }
    QPoint corner() const override {
        xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        auto *place = xcb_translate_coordinates_reply(
            m_connection, xcb_translate_coordinates(m_connection, m_id, screen->root, 0, 0),
            nullptr);
        const QPoint corner = place ? QPoint(place->dst_x, place->dst_y) : QPoint();
        std::free(place);
        return corner;
    }
    // A tiling window manager gives the window another size.
    QRect content() const override {
        auto *size =
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_id), nullptr);
        const QRect content = size ? QRect(0, 0, size->width, size->height) : QRect();
        std::free(size);
        return content;
    }
    bool printsClicks() const override { return true; }

private:
    void readEvents() {
        while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
            switch (event->response_type & 0x7f) {
            case XCB_BUTTON_PRESS:
                print(QStringLiteral("click target"));
                break;
            case XCB_EXPOSE:
                m_isExposed = true;
                break;
            case XCB_FOCUS_IN:
                m_isActive = true;
                break;
            default:
                break;
            }
            std::free(event);
        }
    }

    static constexpr QSize Size{720, 540};

    xcb_connection_t *m_connection;
    QSocketNotifier m_events;
    xcb_window_t m_id = 0;
    std::unique_ptr<QWindow> m_window;
    bool m_isExposed = false;
    bool m_isActive = false;
};

void open(Gallery &gallery) {
    gallery.add(std::make_unique<ForeignHostWindow>());
}

} // namespace

Hosts foreignHosts() {
    return {{"ForeignWindow", open}};
}

} // namespace gallery

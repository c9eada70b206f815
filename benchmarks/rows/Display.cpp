// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/Display.h"

#include "benchmarks/rows/HostProcess.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <vector>

namespace velmora::bench {

namespace {

constexpr qint64 PauseNs = 300'000;
constexpr qint64 TimeoutNs = 60'000'000'000;

} // namespace

Display::Display() : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection))
        qFatal("there is no X display");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

Display::~Display() {
    xcb_disconnect(m_connection);
}

QList<QColor> Display::colorsAt(const QList<QPoint> &points) const {
    std::vector<xcb_get_image_cookie_t> cookies;
    for (const QPoint point : points)
        cookies.push_back(xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                                        int16_t(point.x()), int16_t(point.y()), 1, 1, ~0U));
    QList<QColor> colors;
    for (const xcb_get_image_cookie_t cookie : cookies) {
        auto *reply = xcb_get_image_reply(m_connection, cookie, nullptr);
        if (!reply || xcb_get_image_data_length(reply) < 4)
            qFatal("the display cannot be read");
        const uint8_t *pixel = xcb_get_image_data(reply);
        colors.append(QColor(pixel[2], pixel[1], pixel[0]));
        std::free(reply);
    }
    return colors;
}

qint64 Display::waitFor(const QList<QPoint> &points, const Condition &condition) const {
    const qint64 deadline = HostProcess::now() + TimeoutNs;
    while (!condition(colorsAt(points))) {
        if (HostProcess::now() > deadline)
            qFatal("the display does not show what it should");
        HostProcess::sleepUntil(HostProcess::now() + PauseNs);
    }
    return HostProcess::now();
}

} // namespace velmora::bench

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QPoint>
#include <QtGui/QColor>

#include <functional>

struct xcb_connection_t;

namespace velmora::bench {

/// The pixels of the X display that the hosts are shown on. Whatever fails ends this program.
class Display {
public:
    Display();
    ~Display();
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    QList<QColor> colorsAt(const QList<QPoint> &points) const;

    using Condition = std::function<bool(const QList<QColor> &colors)>;
    /// Looks at some points again and again until a condition is true of their colours.
    /// @return when that was, in nanoseconds of HostProcess::now()
    qint64 waitFor(const QList<QPoint> &points, const Condition &condition) const;

private:
    xcb_connection_t *m_connection;
    quint32 m_root = 0;
};

} // namespace velmora::bench

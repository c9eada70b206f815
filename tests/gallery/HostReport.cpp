// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/HostReport.h"

#include "tests/gallery/Desktop.h"

#include <algorithm>

namespace velmora::test {

namespace {

// What a window manager may draw around a window.
constexpr QMargins Frame(10, 40, 10, 10);

// The rectangle in the last four parts of a line.
QRect rectangle(const QStringList &parts) {
    const auto number = [&parts](qsizetype fromEnd) {
        return parts.value(parts.size() - fromEnd).toInt();
    };
    return {number(4), number(3), number(2), number(1)};
}

} // namespace

HostReport::HostReport(const QStringList &lines) {
    const QHash<QString, QPoint> origins = Desktop::current().windowCorners();
    QList<QPoint> corners;
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char(' '));
        if (parts[0] == QLatin1String("window")) {
            const QString title = QStringLiteral("gallery %1").arg(m_windows.size());
            corners.append(origins.value(title) + QPoint(parts[2].toInt(), parts[3].toInt()));
            m_windows.append(
                {parts[1] == QLatin1String("1"), rectangle(parts).translated(corners.last()), {}});
        } else if (parts[0] == QLatin1String("widget")) {
            const qsizetype index = parts[1].toInt();
            m_windows[index].elements.append(
                {parts[2], rectangle(parts).translated(corners[index])});
        }
    }
}

const HostReport::Window &HostReport::active() const {
    const auto active = std::find_if(m_windows.begin(), m_windows.end(),
                                     [](const Window &window) { return window.isActive; });
    return active == m_windows.end() ? m_windows.first() : *active;
}

QRect HostReport::area() const {
    QRect all;
    for (const Window &window : m_windows)
        all |= window.content + Frame;
    return all;
}

bool HostReport::isShared(const Window &window, const QRect &area) const {
    return std::any_of(m_windows.begin(), m_windows.end(), [&](const Window &other) {
        return &other != &window && (other.content + Frame).intersects(area);
    });
}

std::optional<QRect> HostReport::Window::element(const QString &name) const {
    for (const Element &element : elements) {
        if (element.name == name)
            return element.area & content;
    }
    return {};
}

QList<QPoint> HostReport::Window::targets() const {
    QList<QPoint> points;
    for (const Element &element : elements) {
        const QRect area = element.area & content;
        // Away from the elements of splash screens and banners.
        if (element.name.startsWith(QLatin1String("target")) && !area.isEmpty())
            points.append(area.topLeft() + QPoint(area.width() / 8, area.height() / 4));
    }
    return points;
}

} // namespace velmora::test

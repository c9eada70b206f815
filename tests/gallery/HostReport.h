// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace velmora::test {

/// Where a host's windows and their elements are on the screen, in its pixels.
class HostReport {
public:
    struct Element {
        QString name;
        QRect area;
    };
    struct Window {
        bool isActive = false;
        /// What a splash screen covers: all below the menu bar.
        QRect content;
        QList<Element> elements;

        /// The visible element with a name, the part of it that lies in the content.
        std::optional<QRect> element(const QString &name) const;
        /// Points on the elements of the host that print their clicks.
        QList<QPoint> targets() const;
    };

    /// @param lines what the host has printed
    explicit HostReport(const QStringList &lines);

    const QList<Window> &windows() const { return m_windows; }
    /// The active window; the first one when none is active.
    const Window &active() const;
    /// All windows with their frames.
    QRect area() const;
    /// Whether another window or its frame lies over an area of a window, or under it.
    bool isShared(const Window &window, const QRect &area) const;

private:
    QList<Window> m_windows;
};

} // namespace velmora::test

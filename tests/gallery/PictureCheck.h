// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/gallery/HostReport.h"

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <functional>

namespace velmora::test {

/// Looks for faults in a picture of the screen. What it finds is told in plain words, one line
/// each.
class PictureCheck {
public:
    /// The colours of the ads that the test serves.
    static constexpr QColor Still{0x00, 0x90, 0x30};
    static constexpr QColor BannerLeft{0xff, 0x88, 0x00};
    static constexpr QColor BannerRight{0x00, 0xa0, 0xff};

    PictureCheck(const QImage &picture, const HostReport &report);

    /// The start screen: white in all corners, with black texts, and nothing of the host.
    QString faultsOfStartScreen();
    /// The video in the active window: not black, no start screen, and nothing of the host.
    QString faultsOfVideo();
    /// The end screen: the still and a close button, and nothing of the host.
    QString faultsOfEndScreen();
    /// No splash screen: the host's colour is visible as often as before.
    /// @param visibleBefore what visibleParts() has given before
    QString faultsOfHost(const QList<double> &visibleBefore);
    /// The banner in each window.
    QString faultsOfBanner();

    /// How much of each window has the host's colour, as a part of 1.
    QList<double> visibleParts() const;

private:
    using Window = HostReport::Window;

    void add(const Window &window, const QString &fault);
    void expectCovered(const Window &window);
    void expectText(const Window &window, const QString &name);
    /// The part of an area whose pixels meet a condition, of 1.
    double part(const QRect &area, const std::function<bool(QColor)> &condition) const;
    /// The smallest rectangle around all pixels of a colour in an area.
    QRect bounds(const QRect &area, const QColor &color) const;

    QImage m_picture;
    const HostReport &m_report;
    QString m_faults;
};

} // namespace velmora::test

// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/PictureCheck.h"

#include <algorithm>
#include <cmath>

namespace velmora::test {

namespace {

constexpr QColor HostColor(0xff, 0x00, 0xff);
// Frames and rounding of positions at fractional scales.
constexpr int Margin = 4;
constexpr int BannerWidth = 728;
constexpr int BannerHeight = 90;

bool isLike(QColor seen, QColor wanted) {
    constexpr int Tolerance = 16;
    return std::abs(seen.red() - wanted.red()) <= Tolerance &&
           std::abs(seen.green() - wanted.green()) <= Tolerance &&
           std::abs(seen.blue() - wanted.blue()) <= Tolerance;
}

std::function<bool(QColor)> like(QColor wanted) {
    return [wanted](QColor seen) { return isLike(seen, wanted); };
}

bool isGrey(QColor seen) {
    return isLike(seen, QColor(seen.green(), seen.green(), seen.green()));
}

bool isDark(QColor seen) {
    return std::max({seen.red(), seen.green(), seen.blue()}) < 100;
}

QString percent(double part) {
    return QStringLiteral("%1 %").arg(part * 100, 0, 'f', 1);
}

} // namespace

PictureCheck::PictureCheck(const QImage &picture, const HostReport &report)
    : m_picture(picture.convertToFormat(QImage::Format_RGB32)), m_report(report) {}

void PictureCheck::add(const Window &window, const QString &fault) {
    const qsizetype index = &window - m_report.windows().constData();
    m_faults += QStringLiteral("window %1: %2\n").arg(index).arg(fault);
}

double PictureCheck::part(const QRect &wanted, const std::function<bool(QColor)> &condition) const {
    constexpr int Samples = 20000;
    const QRect area = wanted & m_picture.rect();
    if (area.isEmpty())
        return 0;
    // Every pixel of a small area, a grid of points of a large one.
    const int step = std::max(1, int(std::sqrt(double(area.width()) * area.height() / Samples)));
    int met = 0;
    int looked = 0;
    for (int y = area.top(); y <= area.bottom(); y += step) {
        for (int x = area.left(); x <= area.right(); x += step) {
            ++looked;
            met += condition(m_picture.pixelColor(x, y));
        }
    }
    return double(met) / looked;
}

QRect PictureCheck::bounds(const QRect &wanted, const QColor &color) const {
    const QRect area = wanted & m_picture.rect();
    QRect around;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (isLike(m_picture.pixelColor(x, y), color))
                around |= QRect(x, y, 1, 1);
        }
    }
    return around;
}

void PictureCheck::expectCovered(const Window &window) {
    // The rounded corners of a splash screen in a window above this one.
    constexpr double MostVisible = 0.0005;
    const QRect inside = window.content.adjusted(Margin, Margin, -Margin, -Margin);
    const double visible = part(inside, like(HostColor));
    if (visible > MostVisible)
        add(window, percent(visible) + QStringLiteral(" of the host is visible"));
}

void PictureCheck::expectText(const Window &window, const QString &name) {
    constexpr double LeastInk = 0.005;
    constexpr double MostInk = 0.4;
    const auto area = window.element(QStringLiteral("splash/") + name);
    if (!area) {
        add(window, name + QStringLiteral(" is missing"));
        return;
    }
    if (m_report.isShared(window, *area))
        return;
    const double ink = part(*area, isDark);
    if (ink < LeastInk || ink > MostInk)
        add(window, QStringLiteral("%1 has %2 of dark pixels").arg(name, percent(ink)));
}

QString PictureCheck::faultsOfStartScreen() {
    m_faults.clear();
    for (const Window &window : m_report.windows()) {
        expectCovered(window);
        const QRect corners =
            (window.content & m_picture.rect()).adjusted(Margin, Margin, -Margin, -Margin);
        for (const QPoint &corner :
             {corners.topLeft(), corners.topRight(), corners.bottomLeft(), corners.bottomRight()}) {
            const QColor seen = m_picture.pixelColor(corner);
            if (!isLike(seen, Qt::white) && !m_report.isShared(window, QRect(corner, QSize(1, 1))))
                add(window, QStringLiteral("a corner has the colour ") + seen.name());
        }
        for (const char *name : {"textCommentFieldFirst", "textCommentFieldSecond", "timeLabel"})
            expectText(window, QLatin1String(name));
    }
    return m_faults;
}

QString PictureCheck::faultsOfVideo() {
    constexpr double LeastOfFilm = 0.5;
    constexpr double MostOfGrey = 0.7;
    m_faults.clear();
    for (const Window &window : m_report.windows())
        expectCovered(window);
    const Window &active = m_report.active();
    const QRect row(active.content.left(), active.content.center().y(), active.content.width(), 1);
    const double film = part(row, [](QColor seen) { return !isDark(seen); });
    if (film < LeastOfFilm)
        add(active, QStringLiteral("the film reaches over ") + percent(film));
    // It is grey while it fades.
    if (part(row, isGrey) > MostOfGrey)
        add(active, QStringLiteral("the start screen is still visible"));
    return m_faults;
}

QString PictureCheck::faultsOfEndScreen() {
    constexpr double LeastOfStill = 0.5;
    constexpr double LeastOfButton = 0.05;
    m_faults.clear();
    for (const Window &window : m_report.windows()) {
        expectCovered(window);
        // It is as wide or as high as the window.
        const QPoint middle = window.content.center();
        const QRect row(window.content.left(), middle.y(), window.content.width(), 1);
        const QRect column(middle.x(), window.content.top(), 1, window.content.height());
        const double still = std::max(part(row, like(Still)), part(column, like(Still)));
        if (still < LeastOfStill && !m_report.isShared(window, row | column))
            add(window, QStringLiteral("the still reaches over ") + percent(still));
        const auto button = window.element(QStringLiteral("splash/closeButton"));
        if (!button) {
            add(window, QStringLiteral("the close button is missing"));
            continue;
        }
        const QColor corner = m_picture.pixelColor(button->topLeft());
        const double drawn = part(*button, [corner](QColor seen) { return !isLike(seen, corner); });
        if (drawn < LeastOfButton && !m_report.isShared(window, *button))
            add(window, QStringLiteral("the close button is not drawn"));
    }
    return m_faults;
}

QList<double> PictureCheck::visibleParts() const {
    QList<double> parts;
    for (const Window &window : m_report.windows())
        parts.append(part(window.content, like(HostColor)));
    return parts;
}

QString PictureCheck::faultsOfHost(const QList<double> &visibleBefore) {
    constexpr double Tolerance = 0.01;
    m_faults.clear();
    const QList<double> now = visibleParts();
    for (qsizetype i = 0; i < now.size(); ++i) {
        if (std::abs(now[i] - visibleBefore.value(i)) > Tolerance)
            add(m_report.windows()[i], QStringLiteral("%1 of the host is visible, before it was %2")
                                           .arg(percent(now[i]), percent(visibleBefore.value(i))));
    }
    return m_faults;
}

QString PictureCheck::faultsOfBanner() {
    constexpr double LeastVisible = 0.9; // besides the close button and, in a small one, the mark
    constexpr double RatioTolerance = 0.1;
    constexpr int LeastHeight = 15;
    m_faults.clear();
    for (const Window &window : m_report.windows()) {
        const auto element = window.element(QStringLiteral("banner/bannerImage"));
        if (!element) {
            add(window, QStringLiteral("there is no banner"));
            continue;
        }
        if (m_report.isShared(window, *element))
            continue;
        const QRect left = bounds(*element, BannerLeft);
        const QRect right = bounds(*element, BannerRight);
        const QRect banner = left | right;
        const double ratio = banner.height() ? double(banner.width()) / banner.height() : 0;
        const double visible = part(banner, [](QColor seen) {
            return isLike(seen, BannerLeft) || isLike(seen, BannerRight);
        });
        if (left.isEmpty() || right.isEmpty() || banner.height() < LeastHeight)
            add(window, QStringLiteral("the banner is not visible"));
        else if (std::abs(ratio * BannerHeight / BannerWidth - 1) > RatioTolerance)
            add(window,
                QStringLiteral("the banner is %1x%2").arg(banner.width()).arg(banner.height()));
        else if (visible < LeastVisible)
            add(window, QStringLiteral("the banner is covered; visible: ") + percent(visible));
    }
    return m_faults;
}

} // namespace velmora::test

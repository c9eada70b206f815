// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashLengths.h"
#include "SplashScreenOutlets.h"

#include <QtCore/QList>
#include <QtCore/QRect>

#include <optional>

namespace velmora {

/// Places the elements of the start and end screens: icon, two lines of text and ring below each
/// other in the middle, the remove-ads button at the bottom; in a flat window all in one row. Texts
/// are as large as the user's font asks for as long as everything fits, then smaller. What has no
/// room even then is left out, in this order: icon, second line, remove-ads button, first line.
/// Elements that are hidden keep their place. Main thread only.
class SplashStartLayout {
public:
    explicit SplashStartLayout(const SplashScreenOutlets &outlets) : m_outlets(outlets) {}

    /// @param taken the frames of other elements, in the window's top right corner
    void apply(const QSize &window, const QList<QRect> &taken);

private:
    /// Where the elements lie in the window; an empty frame leaves one out.
    struct Places {
        QRect icon, first, second, ring, button;
    };
    /// The sizes of the elements that are not left out, the others are empty. A text has its size
    /// in the whole width of the area, where it may wrap, and on a single line.
    struct Sizes {
        int icon = 0;
        int ring = 0;
        QSize first, firstLine;
        QSize second, secondLine;
        QSize button;
    };
    using Found = std::optional<Places>;

    Found find(const QSize &window, const QList<QRect> &taken, const SplashLengths &lengths,
               int leftOut) const;
    void setTextSizes(const SplashLengths &lengths);
    Sizes measure(int width, const SplashLengths &lengths, int leftOut) const;
    void place(const Places &places, int windowWidth);
    void placeLines(const Places &places, int windowWidth);

    // Each returns nothing when the elements have no room in an area of the window.
    static Found inColumn(const Sizes &sizes, const QRect &area, const SplashLengths &lengths);
    static Found inRow(const Sizes &sizes, const QRect &area, const SplashLengths &lengths);
    static bool isClear(const Places &places, const QList<QRect> &taken);

    SplashScreenOutlets m_outlets;
    /// The remove-ads button has no room in the window's width, however much else is left out.
    bool m_isButtonTooWide = false;
};

} // namespace velmora

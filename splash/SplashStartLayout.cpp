// SPDX-License-Identifier: Apache-2.0
#include "SplashStartLayout.h"

#include "Animator.h"
#include "SplashElementPlacing.h"
#include "SplashTextScale.h"

#include <algorithm>

namespace velmora {

namespace {

using Placing = SplashElementPlacing;

constexpr int SmallestIcon = 24;
// Wider than any window, so that a text stays on one line.
constexpr int OneLine = 1 << 20;

/// How many elements are left out, in the order in which they are.
enum LeftOut { Nothing, Icon, SecondLine, Button, FirstLine };

bool isShown(const QWidget *element) {
    return element && !Animator::isHidden(element);
}

bool hasRing(const SplashScreenOutlets &outlets) {
    return isShown(outlets.lablesView) && outlets.timeProgressView();
}

int lineGap(const SplashLengths &lengths) {
    return lengths.scaled(6, 3, 10);
}

int buttonGap(const SplashLengths &lengths) {
    return lengths.scaled(16, 8, 24);
}

int iconGap(const SplashLengths &lengths) {
    return lengths.scaled(18, 6, 28);
}

// A text that is wrapped keeps the width for which it was measured.
QSize lineFrame(const QSize &wrapped, const QSize &oneLine, int width) {
    return wrapped.height() > oneLine.height() ? QSize(width, wrapped.height()) : wrapped;
}

QRect middle(const QRect &area, int y, const QSize &size) {
    return {area.x() + (area.width() - size.width()) / 2, y, size.width(), size.height()};
}

/// Takes pieces of an area from one edge to the other, with gaps between them.
class Cutter {
public:
    explicit Cutter(int start) : m_next(start) {}

    /// Returns where a piece begins; an empty one takes no gap.
    int take(int length, int gap) {
        const int at = m_next + (m_isFirst || length == 0 ? 0 : gap);
        if (length > 0) {
            m_next = at + length;
            m_isFirst = false;
        }
        return at;
    }
    int end() const { return m_next; }

private:
    int m_next;
    bool m_isFirst = true;
};

} // namespace

void SplashStartLayout::apply(const QSize &window, const QList<QRect> &taken) {
    const SplashLengths smallest = SplashLengths(window).withTextScale(SplashTextScale::Smallest);
    setTextSizes(smallest);
    m_isButtonTooWide = m_outlets.removeAdsButton && m_outlets.removeAdsButton->sizeHint().width() >
                                                         window.width() - 2 * smallest.margin();
    for (int leftOut = Nothing; leftOut <= FirstLine; ++leftOut) {
        for (const double scale : SplashTextScale::fromApplicationFont()) {
            const SplashLengths lengths = SplashLengths(window).withTextScale(scale);
            setTextSizes(lengths);
            if (const Found found = find(window, taken, lengths, leftOut)) {
                place(*found, window.width());
                return;
            }
        }
    }
    const int side =
        std::min({window.width(), window.height(), SplashLengths(window).cornerRing()});
    Places ringAlone;
    ringAlone.ring = Placing::centred(QRect({}, window).center(), {side, side});
    place(ringAlone, window.width());
}

SplashStartLayout::Found SplashStartLayout::find(const QSize &window, const QList<QRect> &taken,
                                                 const SplashLengths &lengths, int leftOut) const {
    const int margin = lengths.margin();
    const int top = lengths.scaled(24, 8, 40);
    const QRect whole(margin, top, window.width() - 2 * margin, window.height() - margin - top);
    QRect below = whole;
    for (const QRect &frame : taken)
        below.setTop(std::max(below.top(), frame.bottom() + 1 + lengths.scaled(8, 4, 12)));
    const Sizes sizes = measure(whole.width(), lengths, leftOut);
    for (const auto &arrange : {inColumn, inRow}) {
        for (const QRect &area : {whole, below}) {
            if (const Found found = arrange(sizes, area, lengths); found && isClear(*found, taken))
                return found;
        }
    }
    return {};
}

// Sizes.

void SplashStartLayout::setTextSizes(const SplashLengths &lengths) {
    if (SplashScreenLabelsView *labels = m_outlets.lablesView) {
        if (labels->textCommentFieldFirst())
            labels->textCommentFieldFirst()->setTextSize(lengths.scaledText(26, 17, 36));
        if (labels->textCommentFieldSecond())
            labels->textCommentFieldSecond()->setTextSize(lengths.scaledText(16, 13, 22));
    }
    Placing::setLetters(m_outlets.removeAdsButton, lengths.scaledText(17, 13, 22));
}

SplashStartLayout::Sizes SplashStartLayout::measure(int width, const SplashLengths &lengths,
                                                    int leftOut) const {
    Sizes sizes;
    const bool withLines = hasRing(m_outlets);
    const ImageView *icon = m_outlets.iconImageView;
    if (leftOut < Icon && isShown(icon) && icon->hasImage())
        sizes.icon = lengths.scaled(withLines ? 104 : 144, SmallestIcon, 216);
    if (leftOut < Button && !m_isButtonTooWide && isShown(m_outlets.removeAdsButton))
        sizes.button = {m_outlets.removeAdsButton->sizeHint().width(),
                        lengths.scaledText(42, 32, 54)};
    if (!withLines)
        return sizes;
    sizes.ring = lengths.scaled(76, 40, 108);
    const TextField *first = m_outlets.lablesView->textCommentFieldFirst();
    const TextField *second = m_outlets.lablesView->textCommentFieldSecond();
    if (leftOut < FirstLine && first) {
        sizes.first = first->sizeForWidth(width);
        sizes.firstLine = first->sizeForWidth(OneLine);
    }
    if (leftOut < SecondLine && second) {
        sizes.second = second->sizeForWidth(width);
        sizes.secondLine = second->sizeForWidth(OneLine);
    }
    return sizes;
}

// Arrangements.

SplashStartLayout::Found SplashStartLayout::inColumn(const Sizes &sizes, const QRect &area,
                                                     const SplashLengths &lengths) {
    if (std::max({sizes.first.width(), sizes.second.width(), sizes.button.width(), sizes.ring}) >
        area.width())
        return {};
    Places places;
    QRect column = area;
    if (!sizes.button.isEmpty()) {
        places.button = middle(area, area.bottom() + 1 - sizes.button.height(), sizes.button);
        column.setBottom(places.button.top() - 1 - buttonGap(lengths));
    }
    const QSize first = lineFrame(sizes.first, sizes.firstLine, area.width());
    const QSize second = lineFrame(sizes.second, sizes.secondLine, area.width());
    const auto stack = [&](int icon, int top) {
        Cutter cutter(top);
        places.icon = middle(area, cutter.take(icon, 0), {icon, icon});
        const int gap = iconGap(lengths);
        const int between = sizes.first.isEmpty() ? gap : lineGap(lengths);
        places.first = middle(area, cutter.take(first.height(), gap), first);
        places.second = middle(area, cutter.take(second.height(), between), second);
        places.ring = middle(area, cutter.take(sizes.ring, lengths.scaled(22, 8, 32)),
                             {sizes.ring, sizes.ring});
        return cutter.end() - top;
    };
    int icon = sizes.icon;
    const int excess = stack(icon, 0) - column.height();
    if (excess > 0 && icon > 0)
        icon = std::max(icon - excess, SmallestIcon);
    const int height = stack(icon, 0);
    if (height > column.height())
        return {};
    stack(icon, column.top() + (column.height() - height) / 2);
    return places;
}

SplashStartLayout::Found SplashStartLayout::inRow(const Sizes &sizes, const QRect &area,
                                                  const SplashLengths &lengths) {
    const QSize texts(std::max(sizes.firstLine.width(), sizes.secondLine.width()),
                      sizes.firstLine.height() + sizes.secondLine.height() +
                          (sizes.secondLine.isEmpty() ? 0 : lineGap(lengths)));
    const int icon = std::min(sizes.icon, area.height());
    const bool isIconTooSmall = sizes.icon > 0 && icon < SmallestIcon;
    if (sizes.ring == 0 || isIconTooSmall ||
        std::max({texts.height(), sizes.button.height(), sizes.ring}) > area.height())
        return {};
    Places places;
    const auto line = [&](int left) {
        Cutter cutter(left);
        const int y = area.top() + area.height() / 2;
        const int gap = lengths.scaled(40, 20, 56);
        const auto next = [&](const QSize &size) {
            return QRect({cutter.take(size.width(), gap), y - size.height() / 2}, size);
        };
        places.icon = next({icon, icon});
        const QRect block = next(texts);
        places.first = middle(block, block.top(), sizes.firstLine);
        places.second =
            middle(block, block.bottom() + 1 - sizes.secondLine.height(), sizes.secondLine);
        places.ring = next({sizes.ring, sizes.ring});
        places.button = next(sizes.button);
        return cutter.end() - left;
    };
    const int width = line(0);
    if (width > area.width())
        return {};
    line(area.left() + (area.width() - width) / 2);
    return places;
}

bool SplashStartLayout::isClear(const Places &places, const QList<QRect> &taken) {
    const QRect frames[] = {places.icon, places.first, places.second, places.ring, places.button};
    return std::none_of(taken.begin(), taken.end(), [&](const QRect &other) {
        return std::any_of(std::begin(frames), std::end(frames),
                           [&](const QRect &frame) { return frame.intersects(other); });
    });
}

// Places.

void SplashStartLayout::place(const Places &places, int windowWidth) {
    if (isShown(m_outlets.iconImageView))
        Placing::place(m_outlets.iconImageView, places.icon);
    if (isShown(m_outlets.removeAdsButton))
        Placing::place(m_outlets.removeAdsButton.data(), places.button);
    if (hasRing(m_outlets))
        placeLines(places, windowWidth);
}

void SplashStartLayout::placeLines(const Places &places, int windowWidth) {
    SplashScreenLabelsView *labels = m_outlets.lablesView;
    const QRect together = places.first | places.second | places.ring;
    const QRect frame(0, together.top(), windowWidth, together.height());
    if (labels->geometry() != frame)
        labels->setFrame(frame);
    const auto inside = [&](const QRect &place) { return place.translated(0, -frame.top()); };
    Placing::place(labels->textCommentFieldFirst(), inside(places.first));
    Placing::place(labels->textCommentFieldSecond(), inside(places.second));
    Placing::place(labels->timeProgressView(), inside(places.ring));
    Placing::placeCountdown(labels->timeLabel(), inside(places.ring),
                            m_outlets.splashTimerConstraint);
}

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "BannerPlacement.h"

#include "AdMark.h"
#include "BannerImageView.h"
#include "BannerShadowView.h"
#include "CloseButtonCell.h"
#include "InterfaceLoader.h"
#include "StyleShield.h"

#include <algorithm>
#include <initializer_list>

namespace velmora {

namespace {

using Relation = LayoutConstraint::Relation;

// Diameter of the close button's circle: as a part of the banner's height, and in points.
constexpr double CircleShare = 0.26;
constexpr double SmallestCircle = 15;
constexpr double LargestCircle = 22;
constexpr int CloseMargin = 3;
// Size of the ad mark's text: as a part of the banner's height, and in points.
constexpr double MarkShare = 0.12;
constexpr double SmallestMark = 10;
constexpr double LargestMark = 13;
constexpr double LargestMarkShare = 0.5;

// Places the close button in the banner's right corner, also in an application that is read from
// right to left: the picture and its text are not mirrored, so the button would come to lie on
// what the picture shows at the left.
//
// The circle is small on a small banner, so that it hides little of the picture. The area that
// takes clicks keeps its size as long as the banner has room for it.
void placeCloseButton(CloseButtonCell &close, const QSize &banner) {
    const int room = std::min(banner.width(), banner.height());
    const int side = std::min(close.sizeHint().height(), room);
    const int margin = std::clamp((room - side) / 2, 0, CloseMargin);
    close.setGeometry(banner.width() - margin - side, margin, side, side);
    close.setImageDiameter(
        std::clamp(banner.height() * CircleShare, SmallestCircle, LargestCircle));
}

// Places the ad mark beside the close button: users look for it there, and a click that misses the
// button on that side does not open the ad.
void placeMark(AdMark &mark, const CloseButtonCell *close, const QSize &banner) {
    if (banner.isEmpty()) // before the first picture; to measure a text would load the fonts
        return;
    mark.setTextSize(std::min(std::clamp(banner.height() * MarkShare, SmallestMark, LargestMark),
                              banner.height() * LargestMarkShare));
    const QSize size = mark.sizeHint();
    const int right = close ? close->x() : banner.width() - CloseMargin;
    const int top = std::min(CloseMargin, (banner.height() - size.height()) / 2);
    const bool fits = size.width() <= right && top >= 0;
    mark.setGeometry(fits ? QRect({right - size.width(), top}, size) : QRect());
}

} // namespace

void BannerPlacement::loadConstraints(QWidget *root) {
    m_heightConstraint =
        InterfaceLoader::constraint(root, QStringLiteral("heightConstraint"), Relation::Height);
    m_shadowBotOfset =
        InterfaceLoader::constraint(root, QStringLiteral("shadowBotOfset"), Relation::Spacing);
}

void BannerPlacement::place(QWidget *view, BannerImageView *image, CloseButtonCell *close,
                            AdMark *mark) {
    m_centerXConstraint = std::make_shared<LayoutConstraint>(Relation::CenterX, 1, 0);
    m_bottomConstraint =
        std::make_shared<LayoutConstraint>(Relation::Bottom, 1, m_shadowBotOfset->constant());
    m_layout = new ConstraintLayout(view);
    m_shadow = new BannerShadowView(view);
    m_layout->setPlacedHandler([shadow = m_shadow, picture = QPointer(image),
                                button = QPointer(close), badge = QPointer(mark),
                                depth = m_shadowBotOfset](const QRect &frame) {
        if (shadow)
            shadow->follow(frame, qRound(depth->constant()));
        if (picture)
            picture->setGeometry({QPoint(), frame.size()});
        if (button)
            placeCloseButton(*button, frame.size());
        if (badge)
            placeMark(*badge, button, frame.size());
    });
    for (QWidget *root : std::initializer_list<QWidget *>{view, m_shadow})
        new StyleShield(root, [layout = m_layout] {
            if (layout)
                layout->apply();
        });
    m_layout->add(m_heightConstraint);
    m_layout->add(m_centerXConstraint);
    m_layout->add(m_bottomConstraint);
    m_layout->add(std::make_shared<LayoutConstraint>(Relation::TrailingInside, 1, 0));
}

void BannerPlacement::setImageSize(const QSizeF &image) {
    if (!m_layout)
        return;
    if (m_aspectConstraint)
        m_layout->remove(m_aspectConstraint);
    m_aspectConstraint =
        std::make_shared<LayoutConstraint>(Relation::Aspect, image.width() / image.height(), 0);
    m_layout->add(m_aspectConstraint);
}

double BannerPlacement::height() const {
    return m_heightConstraint ? m_heightConstraint->constant() : 0;
}

void BannerPlacement::setHeight(double height) {
    if (m_heightConstraint)
        m_heightConstraint->setConstant(height);
}

double BannerPlacement::bottomInset() const {
    return m_bottomConstraint ? m_bottomConstraint->constant() - m_shadowBotOfset->constant() : 0;
}

void BannerPlacement::setBottomInset(double inset) {
    if (m_bottomConstraint)
        m_bottomConstraint->setConstant(inset + m_shadowBotOfset->constant());
}

double BannerPlacement::centerXInset() const {
    return m_centerXConstraint ? m_centerXConstraint->constant() : 0;
}

void BannerPlacement::setCenterXInset(double inset) {
    if (m_centerXConstraint)
        m_centerXConstraint->setConstant(inset);
}

BannerShadowView *BannerPlacement::shadow() const {
    return m_shadow;
}

} // namespace velmora

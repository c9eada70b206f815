// SPDX-License-Identifier: Apache-2.0
#include "BannerController.h"

#include "BannerImageView.h"
#include "BannerShadowView.h"
#include "CloseButtonCell.h"
#include "MainQueue.h"
#include "VisibilityWatch.h"
#include "Window.h"

#include <Velmora/Support.h>

#include <QtWidgets/QLayout>
#include <QtWidgets/QSplitter>

#include <algorithm>

namespace velmora {

namespace {
constexpr double CircleShare = 0.26;
constexpr double SmallestCircle = 15;
constexpr double LargestCircle = 22;
constexpr int CloseMargin = 3;

// On a small banner a small circle, so that it hides little; as easy to hit as ever, for as long as
// the banner has room for that.
void fitCloseButton(CloseButtonCell &close, QLayout &layout, const QSize &banner) {
    const int room = std::min(banner.width(), banner.height());
    const int side = std::min(close.sizeHint().height(), room);
    const int margin = std::clamp((room - side) / 2, 0, CloseMargin);
    close.setFixedSize(side, side);
    layout.setContentsMargins(margin, margin, margin, margin);
    layout.activate();
    close.setImageDiameter(
        std::clamp(banner.height() * CircleShare, SmallestCircle, LargestCircle));
}

} // namespace

std::shared_ptr<BannerController> BannerController::addBannerToWindow(QWidget *window) {
    const std::shared_ptr<BannerController> banner(new BannerController);
    banner->setWindow(window);
    return banner;
}

std::shared_ptr<BannerController>
BannerController::addBannerToViewController(ViewController *controller, QWidget *view) {
    const std::shared_ptr<BannerController> banner(new BannerController);
    banner->setViewController(controller, view);
    return banner;
}

void BannerController::setWindow(QWidget *window) {
    if (!MainQueue::isMainThread()) {
        MainQueue::post([self = shared_from_this(), target = QPointer<QWidget>(window)] {
            self->setWindow(target);
        });
        return;
    }
    m_window = window ? window->window() : nullptr;
    if (refusedBecauseAdsAreRemoved() || !m_window)
        return;
    const Window *facts = Window::of(m_window);
    ViewController *content = facts->contentViewController();
    if (content && content->view()) {
        content->addChildViewController(this);
        attachTo(content->view());
    } else {
        m_isInCentralWidget = facts->contentView() != m_window;
        attachTo(facts->contentView());
    }
}

void BannerController::setViewController(ViewController *controller, QWidget *view) {
    if (!controller)
        return;
    if (!MainQueue::isMainThread()) {
        MainQueue::post([self = shared_from_this(), controller, lifetime = controller->lifetime(),
                         target = QPointer<QWidget>(view), given = view != nullptr] {
            if (!lifetime.expired() && (!given || target))
                self->setViewController(controller, target);
        });
        return;
    }
    m_window = controller->viewWindow();
    if (refusedBecauseAdsAreRemoved())
        return;
    const Window *facts = Window::of(m_window);
    if (facts && facts->contentViewController())
        controller->addChildViewController(this);
    attachTo(view ? view : controller->view());
}

void BannerController::attachTo(QWidget *superview) {
    // A splitter would take the banner for one more of its panes.
    while (qobject_cast<QSplitter *>(superview))
        superview = superview->parentWidget();
    if (!superview) {
        LOG(QStringLiteral("a banner is never shown: it was given no view to lie in"));
        return;
    }
    QWidget *own = view();
    if (!own)
        return;
    own->setParent(superview);
    setBannerConstraints();
    // Should the table not come for a whole turn, a house banner stands in.
    if (!m_bannerSwapTimer)
        scheduleSwap();
}

QWidget *BannerController::window() const {
    if (!m_visibility)
        return m_window;
    const QWidget *superview = viewIfLoaded() ? viewIfLoaded()->parentWidget() : nullptr;
    return superview ? superview->window() : nullptr;
}

void BannerController::setBannerConstraints() {
    QWidget *own = view();
    if (!own || !own->parentWidget())
        return;
    using Relation = LayoutConstraint::Relation;
    m_centerXConstraint = std::make_shared<LayoutConstraint>(Relation::CenterX, 1, 0);
    m_bottomConstraint =
        std::make_shared<LayoutConstraint>(Relation::Bottom, 1, m_shadowBotOfset->constant());
    m_layout = new ConstraintLayout(own);
    m_shadow = new BannerShadowView(own);
    m_layout->setPlacedHandler([shadow = m_shadow, image = m_bannerImage, close = m_closeButton,
                                depth = m_shadowBotOfset](const QRect &frame) {
        if (shadow)
            shadow->follow(frame, qRound(depth->constant()));
        if (close && image && image->layout())
            fitCloseButton(*close, *image->layout(), frame.size());
    });
    m_visibility = new VisibilityWatch(own);
    // On a later turn: the host is in the middle of showing or moving something.
    QObject::connect(m_visibility, &VisibilityWatch::changed, m_visibility,
                     [weak = weak_from_this()] {
                         MainQueue::post([weak] {
                             if (const auto self = weak.lock())
                                 self->takeTurnIfResting();
                         });
                     });
    m_layout->add(m_heightConstraint);
    m_layout->add(m_centerXConstraint);
    m_layout->add(m_bottomConstraint);
    m_layout->add(std::make_shared<LayoutConstraint>(Relation::TrailingInside, 1, 0));
}

void BannerController::updateBannerConstraint() {
    if (!m_layout || !m_bannerImage || !m_bannerImage->hasImage())
        return;
    if (m_aspectConstraint)
        m_layout->remove(m_aspectConstraint);
    const QSizeF image = m_bannerImage->imageSize();
    m_aspectConstraint = std::make_shared<LayoutConstraint>(LayoutConstraint::Relation::Aspect,
                                                            image.width() / image.height(), 0);
    m_layout->add(m_aspectConstraint);
}

double BannerController::height() const {
    return m_heightConstraint ? m_heightConstraint->constant() : 0;
}

void BannerController::setHeight(double height) {
    view();
    if (m_bannerImage)
        m_bannerImage->setNominalHeight(height);
    if (m_heightConstraint)
        m_heightConstraint->setConstant(height);
}

double BannerController::bottomInset() const {
    return m_bottomConstraint ? m_bottomConstraint->constant() - m_shadowBotOfset->constant() : 0;
}

void BannerController::setBottomInset(double inset) {
    if (m_bottomConstraint)
        m_bottomConstraint->setConstant(inset + m_shadowBotOfset->constant());
}

double BannerController::centerXInset() const {
    return m_centerXConstraint ? m_centerXConstraint->constant() : 0;
}

void BannerController::setCenterXInset(double inset) {
    if (m_centerXConstraint)
        m_centerXConstraint->setConstant(inset);
}

} // namespace velmora

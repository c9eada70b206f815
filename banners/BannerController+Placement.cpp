#include "banners/BannerController.h"

#include "banners/BannerShadowView.h"
#include "controls/BannerImageView.h"
#include "controls/CloseButtonCell.h"
#include "platform/MainQueue.h"
#include "platform/Window.h"

#include <Velmora/Support.h>

#include <QtWidgets/QSplitter>

#include <algorithm>

namespace velmora {

namespace {
constexpr double CircleShare = 0.26;
constexpr double SmallestCircle = 15;
constexpr double LargestCircle = 22;
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
    m_window = window;
    if (refusedBecauseAdsAreRemoved() || !window)
        return;
    const Window *facts = Window::of(window);
    if (ViewController *content = facts->contentViewController()) {
        content->addChildViewController(this);
        attachTo(content->view());
    } else {
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
    QWidget *own = view();
    // A splitter would take the banner for one more of its panes.
    while (qobject_cast<QSplitter *>(superview))
        superview = superview->parentWidget();
    if (!superview)
        LOG(QStringLiteral("a banner found no view to lie in"));
    if (!own || !superview)
        return;
    own->setParent(superview);
    setBannerConstraints();
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
    m_layout->setPlacedHandler(
        [shadow = m_shadow, close = m_closeButton, depth = m_shadowBotOfset](const QRect &frame) {
            if (shadow)
                shadow->follow(frame, qRound(depth->constant()));
            // On a small banner a small circle, so that it hides little; as easy to hit as ever.
            if (close)
                close->setImageDiameter(
                    std::clamp(frame.height() * CircleShare, SmallestCircle, LargestCircle));
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

// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenController.h"

#include "ColoredView.h"
#include "InterfaceImage.h"
#include "InterfaceLoader.h"
#include "MainQueue.h"
#include "SplashScreenKeys.h"
#include "SplashScreenLayout.h"
#include "SystemVersion.h"
#include "Window.h"

#include <Velmora/Support.h>

#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace velmora {

namespace {

constexpr const char *ZPosition = "zPosition";
constexpr int LargestIcon = 512;

void setZPosition(QWidget *view, int position) {
    if (view)
        view->setProperty(ZPosition, position);
}

// Stacks the children of a view by their positions, equal ones as they are.
void restack(QWidget *view) {
    QList<QWidget *> children =
        view->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    std::stable_sort(children.begin(), children.end(), [](QWidget *one, QWidget *other) {
        return one->property(ZPosition).toInt() < other->property(ZPosition).toInt();
    });
    for (QWidget *child : std::as_const(children)) {
        if (!child->isWindow())
            child->raise();
    }
}

QImage imageOf(const QIcon &icon) {
    return icon.pixmap(QSize(LargestIcon, LargestIcon), 1.0).toImage();
}

template<class T>
void registerClass(const char *name) {
    InterfaceLoader::registerClass<T>(QString::fromLatin1(name));
}

} // namespace

std::shared_ptr<SplashScreenController>
SplashScreenController::initSplashScreenWithWindow(QWidget *window, bool isUnityWindow) {
    const std::shared_ptr<SplashScreenController> controller(new SplashScreenController);
    controller->setIsUnityWindow(isUnityWindow);
    controller->setWindow(window);
    return controller;
}

SplashScreenController::SplashScreenController() = default;

SplashScreenController::~SplashScreenController() {
    // A view that never got a place belongs to nobody.
    if (!m_overlay)
        delete viewIfLoaded();
}

QImage SplashScreenController::appIcon() {
    return imageOf(QApplication::windowIcon());
}

// Loading.

QWidget *SplashScreenController::loadView() {
    registerClass<ColoredView>("ColoredView");
    registerClass<ImageView>("ImageView");
    registerClass<VideoView>("VideoView");
    registerClass<LinkArea>("LinkArea");
    registerClass<TextField>("TextField");
    registerClass<TimeProgressView>("TimeProgressView");
    registerClass<SplashScreenLabelsView>("SplashScreenLabelsView");
    registerClass<RemoveAdsButton>("RemoveAdsButton");
    registerClass<CloseButtonCell>("CloseButtonCell");
    registerClass<ToggleButtonCell>("ToggleButtonCell");
    QWidget *root = InterfaceLoader::load(QStringLiteral("SplashScreenController"));
    if (!root)
        return nullptr;
    m_outlets = SplashScreenOutlets::of(root);
    using Relation = LayoutConstraint::Relation;
    setSplashTimerConstraint(InterfaceLoader::constraint(
        root, QStringLiteral("splashTimerConstraint"), Relation::Spacing));
    setSpashTimerConstraint1(InterfaceLoader::constraint(
        root, QStringLiteral("spashTimerConstraint1"), Relation::Spacing));
    return root;
}

void SplashScreenController::setSplashTimerConstraint(const LayoutConstraintPtr &constraint) {
    m_outlets.splashTimerConstraint = constraint;
    lowerTimerConstraint();
}

void SplashScreenController::setSpashTimerConstraint1(const LayoutConstraintPtr &constraint) {
    m_outlets.spashTimerConstraint1 = constraint;
    // The first constraint again: it ends two points lower, this one as it was.
    lowerTimerConstraint();
}

void SplashScreenController::lowerTimerConstraint() {
    const LayoutConstraintPtr &first = m_outlets.splashTimerConstraint;
    if (first && SystemVersion::current().minor < 11)
        first->setConstant(first->constant() - 1);
}

void SplashScreenController::viewDidLoad() {
    initViewState();
    m_layout = new SplashScreenLayout(view(), m_outlets);
    new SplashScreenKeys(view(), m_outlets.closeButton);
}

void SplashScreenController::initViewState() {
    if (m_outlets.closeButton)
        m_outlets.closeButton->setIcon(InterfaceImage::named(QStringLiteral("ads_close_button")));
    if (ToggleButtonCell *sound = m_outlets.soundButton) {
        sound->setImage(InterfaceImage::named(QStringLiteral("ads_sound_on")));
        sound->setAlternateImage(InterfaceImage::named(QStringLiteral("ads_sound_off")));
    }
    setTitles();
    setStackingOrder();
    for (QWidget *element : {static_cast<QWidget *>(m_outlets.closeButton),
                             static_cast<QWidget *>(m_outlets.splashScreenPlayerView),
                             static_cast<QWidget *>(m_outlets.timeVideoLabel),
                             static_cast<QWidget *>(m_outlets.videoProgressView),
                             static_cast<QWidget *>(m_outlets.soundButton)}) {
        if (element)
            element->hide();
    }
    connectActions();
    m_didInitState = true;
    MainQueue::post([weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->showApplicationIcon();
    });
}

void SplashScreenController::showApplicationIcon() {
    if (!m_appearance.icon.isNull() || !m_outlets.iconImageView)
        return;
    QImage icon = appIcon();
    if (icon.isNull() && m_window)
        icon = imageOf(m_window->windowIcon());
    if (icon.isNull())
        return;
    m_outlets.iconImageView->setImage(icon);
    if (m_layout)
        m_layout->apply();
}

void SplashScreenController::setTitles() {
    if (SplashScreenLabelsView *labels = m_outlets.lablesView) {
        if (labels->textCommentFieldFirst())
            labels->textCommentFieldFirst()->setText(
                VLMStringFromKey(QStringLiteral("ApplicationWillBeLaunchedTextFirst")));
        if (labels->textCommentFieldSecond())
            labels->textCommentFieldSecond()->setText(
                VLMStringFromKey(QStringLiteral("ApplicationWillBeLaunchedTextSecond")));
    }
    const QString removeAds = VLMStringFromKey(QStringLiteral("RemoveAdsText"));
    if (m_outlets.removeAdsButton)
        m_outlets.removeAdsButton->setText(removeAds);
    if (RemoveAdsButton *button = m_outlets.removeAdsImageButton) {
        button->setText(removeAds.split(QLatin1Char(' ')).join(QLatin1Char('\n')).toUpper());
        button->setAccessibleName(removeAds);
    }
    const auto name = [](QWidget *element, const char *key) {
        if (element)
            element->setAccessibleName(VLMStringFromKey(QString::fromLatin1(key)));
    };
    name(view(), "AdvertisementText");
    name(m_outlets.closeButton, "CloseText");
    name(m_outlets.soundButton, "MuteText");
    name(m_outlets.urlButton, "OpenAdText");
}

void SplashScreenController::setStackingOrder() {
    if (SplashScreenLabelsView *labels = m_outlets.lablesView) {
        setZPosition(labels->timeLabel(), 1);
        restack(labels);
    }
    setZPosition(m_outlets.timeVideoLabel, 2);
    setZPosition(m_outlets.closeButton, 1);
    setZPosition(m_outlets.removeAdsImageButton, 2);
    setZPosition(m_outlets.videoProgressView, 2);
    setZPosition(m_outlets.removeAdsButton, 2);
    setZPosition(m_outlets.soundButton, 2);
    restack(view());
}

void SplashScreenController::connectActions() {
    // An answer may take this controller away: it stays until the action is done.
    const auto connect = [this](QAbstractButton *button, auto action) {
        if (!button)
            return;
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [weak = weak_from_this(), action] {
                             if (const auto self = weak.lock())
                                 action(*self);
                         });
    };
    using Self = SplashScreenController;
    connect(m_outlets.closeButton, [](Self &self) { self.closeSplashScreen(); });
    connect(m_outlets.removeAdsButton, [](Self &self) { self.removeAdsAction(); });
    connect(m_outlets.removeAdsImageButton, [](Self &self) { self.removeAdsAction(); });
    connect(m_outlets.urlButton, [](Self &self) { self.goToURLForBanner(); });
    connect(m_outlets.soundButton,
            [](Self &self) { self.soundOnOff(self.m_outlets.soundButton->state()); });
}

// The window.

void SplashScreenController::setWindow(QWidget *window) {
    if (!MainQueue::isMainThread()) {
        MainQueue::post([weak = weak_from_this(), target = QPointer<QWidget>(window)] {
            if (const auto self = weak.lock())
                self->setWindow(target);
        });
        return;
    }
    m_window = window;
    attach();
}

void SplashScreenController::attach() {
    const Window *facts = Window::of(m_window);
    QWidget *own = view();
    if (!facts || !own)
        return;
    if (ViewController *content = facts->contentViewController())
        content->addChildViewController(this);
    m_area = std::make_unique<ContentArea>(m_window, [this] { applyTopInset(); });
    if (QWidget *superview = m_area->superview())
        place(own, superview);
}

void SplashScreenController::place(QWidget *view, QWidget *superview) {
    m_overlay = std::make_unique<Overlay>(
        view, superview, m_isUnityWindow ? Overlay::Kind::Native : Overlay::Kind::Automatic);
    // The host may be about to make its new content.
    m_overlay->setSuperviewLostHandler([weak = weak_from_this()] {
        MainQueue::post([weak] {
            if (const auto self = weak.lock())
                self->placeAnew();
        });
    });
}

// The host destroyed the content that the view lay in, and kept the window.
void SplashScreenController::placeAnew() {
    QWidget *superview = m_window && m_area ? m_area->superview() : nullptr;
    QWidget *own = superview && m_overlay ? m_overlay->takeView() : nullptr;
    if (!own)
        return;
    place(own, superview);
    applyTopInset();
    m_overlay->setHidden(m_isRootHidden);
}

void SplashScreenController::setTopInset(double inset) {
    m_appearance.topInset = inset;
    applyTopInset();
}

void SplashScreenController::applyTopInset() {
    if (!m_overlay || !m_overlay->superview())
        return;
    // As far as any screen reaches.
    constexpr double Farthest = 100'000;
    const int free = int(std::lround(std::clamp(m_appearance.topInset, -Farthest, Farthest)));
    m_overlay->setFrame(m_area->rect().adjusted(0, free, 0, 0));
}

void SplashScreenController::removeFromWindow() {
    removeFromParentViewController();
    if (m_overlay)
        m_overlay->remove();
}

// The user's actions.

void SplashScreenController::closeSplashScreen() {
    m_withouSplash = false;
    if (const auto output = m_output.lock())
        output->didClickClose();
}

void SplashScreenController::removeAdsAction() {
    if (const auto output = m_output.lock())
        output->didClickRemoveAds();
}

void SplashScreenController::soundOnOff(int state) {
    if (const auto output = m_output.lock())
        output->didChangeMuted(state != 0);
}

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdsDownloader.h"
#include "ConstraintLayout.h"
#include "DownloadDelegate.h"
#include "LayoutConstraint.h"
#include <Velmora/Timer.h>

#include <Velmora/ViewController.h>

#include <QtCore/QMap>
#include <QtCore/QPointer>

#include <memory>

namespace velmora {

class BannerImageView;
class BannerShadowView;
class CloseButtonCell;
class VisibilityWatch;

/// One animated banner at the bottom of one host window or view: shows the banner that it is given
/// by the downloader or a house banner, swaps it every 15 seconds while the window is visible,
/// opens its link on a click and tells the host of a click on its close button. Main thread only,
/// except where an operation says that it moves itself there.
class BannerController : public ViewController,
                         public DownloadDelegate,
                         public std::enable_shared_from_this<BannerController> {
public:
    static constexpr double SwapSeconds = 15;

    /// Makes a banner and attaches it to a window.
    static std::shared_ptr<BannerController> addBannerToWindow(QWidget *window);
    /// Makes a banner and attaches it to a host's view; the controller's own when null.
    static std::shared_ptr<BannerController> addBannerToViewController(ViewController *controller,
                                                                       QWidget *view);

    ~BannerController() override;

    /// The window that the banner lies in by now, whatever it was put into; null when in none.
    QWidget *window() const;
    /// Any thread.
    void setWindow(QWidget *window);
    /// Any thread.
    void setViewController(ViewController *controller, QWidget *view);

    // Placement, in points.
    double height() const;
    void setHeight(double height);
    /// Distance from the superview's bottom, above the room for the shadow; positive is up.
    /// Without effect until the banner is in a superview, as is the centre inset.
    double bottomInset() const;
    void setBottomInset(double inset);
    /// Distance from the centre; positive is to the right.
    double centerXInset() const;
    void setCenterXInset(double inset);

    // Content.
    /// Ad data is ready; moves itself to the main thread.
    void endDownloadСonfiguration() override;
    /// Asks for the next banner and starts the next 15 seconds. Out of sight the rotation rests,
    /// without a timer, until the banner can be seen again.
    void swapBanners();
    /// Shows the banner that is ready, or a house banner when none is.
    void displayBanner(const BannerAd &ready);
    void setBannerGifImageWithURL(const BannerAd &ad);
    void setBannerGifImageWithName(const QString &identifier);
    /// Hides or shows the view without a fade. Without a superview it is never shown: it would
    /// become a window.
    void setBannerHidden(bool hidden);
    /// Takes the banner away for good, with a fade.
    void removeADS();

    /// Opens the link of the banner on screen and tells the host.
    void goToBannerURL();
    /// The close button was clicked.
    void removeBannerAction();

    /// Name of the banner on screen: the ad's, "Web Banner", or a house banner's identifier.
    const QString &selectBanner() const { return m_shown.name; }
    const QUrl &currentURL() const { return m_shown.link; }
    const QMap<QString, QString> &standardBanners() const { return m_standardBanners; }
    const TimerPtr &bannerSwapTimer() const { return m_bannerSwapTimer; }
    BannerImageView *bannerImage() const;
    CloseButtonCell *closeButton() const;

    /// True once the banner was removed or its view was destroyed with the host's window.
    bool isGone() const override;

protected:
    QWidget *loadView() override;
    void viewDidLoad() override;

private:
    BannerController();
    void initBanners();
    bool refusedBecauseAdsAreRemoved();
    void attachTo(QWidget *superview);
    void setBannerConstraints();
    void updateBannerConstraint();
    bool hasShownBanner() const { return !m_shown.name.isEmpty(); }
    bool isOutOfSight() const;
    void takeTurnIfResting();
    void scheduleSwap();
    void cancelSwap();
    void askForBanner();
    void showImage(const BannerAd &ad, const QString &path);
    void open(const BannerAd &ad);
    void setPartsHidden(bool hidden, void (*set)(QWidget *, bool));
    /// The view and its shadow, as far as they exist.
    QList<QWidget *> parts() const;
    /// The host has replaced the central widget that the banner lies in. Qt destroys that on a
    /// later turn.
    bool isContentReplaced() const;

    QPointer<QWidget> m_window;
    QPointer<BannerImageView> m_bannerImage;
    QPointer<CloseButtonCell> m_closeButton;
    QPointer<BannerShadowView> m_shadow;

    LayoutConstraintPtr m_heightConstraint;
    LayoutConstraintPtr m_aspectConstraint;
    LayoutConstraintPtr m_bottomConstraint;
    LayoutConstraintPtr m_centerXConstraint;
    LayoutConstraintPtr m_shadowBotOfset;
    QPointer<ConstraintLayout> m_layout;
    QPointer<VisibilityWatch> m_visibility;

    BannerAd m_shown;
    /// What was on screen when the image went down under the pointer.
    BannerAd m_pressed;
    TimerPtr m_bannerSwapTimer;
    bool m_rests = false;
    bool m_isInCentralWidget = false;
    /// A request of this banner's is under way.
    bool m_asks = false;
    std::shared_ptr<AdsDownloader> m_downloader;
    QMap<QString, QString> m_standardBanners;
    bool m_removed = false;
    bool m_viewWasLoaded = false;
};

} // namespace velmora

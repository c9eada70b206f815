// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdsDownloader.h"
#include "BannerInterface.h"
#include "BannerPlacement.h"
#include "BannerRotation.h"
#include "DownloadDelegate.h"

#include <Velmora/BannerController.h>

#include <QtCore/QMap>
#include <QtCore/QPointer>

#include <memory>

namespace velmora {

/// One animated banner at the bottom of one host window or view: shows the banners that the
/// downloader gives it, or house banners, opens the link of a clicked one and tells the host of a
/// click on the close button. BannerPlacement keeps it in its place, BannerRotation says when the
/// next banner is due. Every BannerController that a host sees is of this class.
///
/// Main thread only; the operations that say "any thread" post themselves to the main thread.
class AdBannerController final : public BannerController,
                                 public DownloadDelegate,
                                 public std::enable_shared_from_this<AdBannerController> {
public:
    static constexpr double SwapSeconds = BannerRotation::SwapSeconds;

    /// Makes a banner and attaches it to a window.
    static std::shared_ptr<AdBannerController> addBannerToWindow(QWidget *window);
    /// Makes a banner and attaches it to a host's view; the controller's own when null.
    static std::shared_ptr<AdBannerController> addBannerToViewController(ViewController *controller,
                                                                         QWidget *view);

    ~AdBannerController() override;

    /// The class that a host's pointer to a banner really has.
    static AdBannerController &of(BannerController &banner) {
        return static_cast<AdBannerController &>(banner);
    }

    QWidget *window() const override;
    QWindow *windowHandle() const override;
    /// The widget that is, or stands for, the window that the banner lies in; null when in none.
    QWidget *hostWindow() const;
    QRect rectInWindow() const override;
    /// Attaches the banner to the content of a window. Any thread.
    void setWindow(QWidget *window);
    /// Attaches the banner to a host's view; the controller's own when null. Any thread.
    void setViewController(ViewController *controller, QWidget *view);

    // Placement; see BannerPlacement.
    double height() const override { return m_placement.height(); }
    void setHeight(double height) override;
    double bottomInset() const override { return m_placement.bottomInset(); }
    void setBottomInset(double inset) override { m_placement.setBottomInset(inset); }
    double centerXInset() const override { return m_placement.centerXInset(); }
    void setCenterXInset(double inset) override { m_placement.setCenterXInset(inset); }

    /// Sets whether Tab reaches the close button and the ad. Default: true.
    void setInTabOrder(bool isInTabOrder);

    // Content.
    /// Ad data is ready. Any thread.
    void endDownloadСonfiguration() override;
    /// A turn of the rotation: asks for the next banner and schedules the next turn. While nobody
    /// can see the banner the rotation rests instead.
    void swapBanners();
    /// Shows the banner that is ready, or a house banner when none is or its file is unusable.
    void displayBanner(const BannerAd &ready);
    void setBannerGifImageWithURL(const BannerAd &ad);
    void setBannerGifImageWithName(const QString &identifier);
    bool isBannerHidden() const override;
    /// Without a superview the view is never shown: it would become a window.
    void setBannerHidden(bool hidden) override;
    /// Takes the banner away for good, with a fade.
    void removeADS();

    /// Opens the link of the banner on screen and tells the host.
    void goToBannerURL();
    /// The close button was clicked.
    void removeBannerAction();
    void closeClicked();

    QString selectBanner() const override { return m_shown.name; }
    QUrl currentURL() const override { return m_shown.link; }
    const QMap<QString, QString> &standardBanners() const { return m_standardBanners; }
    const TimerPtr &bannerSwapTimer() const { return m_rotation.timer(); }
    BannerImageView *bannerImage() const { return m_interface.image(); }
    CloseButtonCell *closeButton() const { return m_interface.closeButton(); }

    /// True once the banner was removed, its view was destroyed with the host's window, or the host
    /// has replaced the central widget that it lies in.
    bool isGone() const override;

protected:
    QWidget *loadView() override;
    void viewDidLoad() override;

private:
    AdBannerController();
    void initBanners();
    void connectControls();
    /// While ads are removed, hides the view, ends the rotation and returns true.
    bool hideIfAdsAreRemoved();
    void attachTo(QWidget *superview);
    void setBannerConstraints();
    void updateBannerConstraint();
    void askForBanner();
    void displayHouseBanner();
    void showImage(const BannerAd &ad, const QString &path);
    /// Tells the host that the picture of the ad on screen is unusable.
    void refusePicture() const;
    void open(const BannerAd &ad);
    void setPartsHidden(bool hidden, void (*set)(QWidget *, bool));
    /// The view and its shadow, without nulls.
    QList<QWidget *> parts() const;
    /// True when the host has replaced the central widget that the banner lies in. Qt destroys that
    /// on a later turn of the main loop.
    bool isContentReplaced() const;

    QPointer<QWidget> m_window;
    BannerInterface m_interface;
    BannerPlacement m_placement;
    BannerRotation m_rotation;

    BannerAd m_shown;
    /// What was on screen when the mouse button went down on the banner: a click opens that, even
    /// when the banner has changed meanwhile.
    BannerAd m_pressed;
    bool m_isInCentralWidget = false;
    /// Of the last request for a banner; the answers to earlier ones are ignored.
    int m_request = 0;
    std::shared_ptr<AdsDownloader> m_downloader;
    QMap<QString, QString> m_standardBanners;
    bool m_removed = false;
    bool m_viewWasLoaded = false;
};

} // namespace velmora

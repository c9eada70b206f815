// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>
#include <Velmora/ViewController.h>

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace velmora {

/// One banner in one of the host's windows or views. Made by Velmora::addBannerForWindow() and
/// Velmora::addBannerForViewController(), found by Velmora::BControllFromWindow() and
/// Velmora::BControllers(). Main thread only.
///
/// The framework owns the banner: a pointer is valid until the host removes ads or destroys the
/// widget that the banner lies in. A shared pointer from Velmora::BControllers() keeps the object
/// valid, and it then describes a banner that is hidden.
///
/// Lengths are device-independent pixels. NaN and infinity are ignored.
class VELMORA_EXPORT BannerController : public ViewController {
public:
    ~BannerController() override;

    /// The window that the banner lies in; null when in none, and for a QWindow that is not a
    /// widget's. A host may move the view that holds the banner to another window.
    virtual QWidget *window() const = 0;
    /// The native window that the banner lies in: that of window(), or the QWindow that was given
    /// to Velmora::addBannerForWindow(). Null when in none, and while window() has none.
    virtual QWindow *windowHandle() const = 0;

    /// The part of the window that the banner covers, with its shadow, in the window's coordinates;
    /// empty while the banner is hidden or lies on a page behind another one.
    /// VelmoraEvents::bannerRectChanged() and windowBannerRectChanged() tell when this changes.
    virtual QRect rectInWindow() const = 0;

    /// True before the first picture, while the host has hidden the banner, and after the banner
    /// was removed.
    virtual bool isBannerHidden() const = 0;
    /// Hides or shows the banner at once. A hidden banner is shown again with its next picture. A
    /// removed banner is never shown.
    virtual void setBannerHidden(bool hidden) = 0;

    /// The height that the host has set, without the shadow. Where its place is too narrow or too
    /// low, the banner is lower than that. Default: 100, or what Velmora::setBannersHeight() has
    /// set.
    virtual double height() const = 0;
    /// Sets the height; a negative one counts as 0.
    virtual void setHeight(double height) = 0;

    /// The distance from the bottom of the view that holds the banner to the banner's shadow;
    /// positive is up. Default: 0, or what Velmora::setBannersBottomInset() has set.
    virtual double bottomInset() const = 0;
    /// Sets the distance from the bottom.
    virtual void setBottomInset(double inset) = 0;

    /// The distance of the banner's centre from that of the view that holds it; positive is to the
    /// right. Default: 0, or what Velmora::setBannersCenterXInset() has set.
    virtual double centerXInset() const = 0;
    /// Sets the distance from the centre. The banner is never moved beyond the right edge.
    virtual void setCenterXInset(double inset) = 0;

    /// Name of the ad that is shown: the ad's own, "Web Banner" when it has none, or a house
    /// banner's identifier; null before the first.
    virtual QString selectBanner() const = 0;
    /// Where a click on that ad leads; empty when nowhere.
    virtual QUrl currentURL() const = 0;

private:
    // Hosts do not derive from this class, so that functions can be added to it.
    friend class AdBannerController;
    BannerController();
};

} // namespace velmora

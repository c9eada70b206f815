// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "BannerControls.h"
#include "ItemExposure.h"
#include "OffscreenBanner.h"

#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

#include <memory>

namespace velmora {

/// The QML type Banner: a banner at the bottom of the item, in its middle. It is drawn in the scene
/// like any other item, so clipping, opacity, stacking and popups apply to it. The part of the item
/// that the banner leaves free is transparent and lets mouse events through. It takes no wheel
/// events. Tab reaches its close button and the ad, unless Velmora.setBannersInTabOrder() keeps
/// banners out; screen readers find both.
///
/// The picture rotates, and is drawn, only while the item is visible in a window that is exposed
/// and not minimised. When ads are removed the item is empty and has no implicit size. After
/// Velmora.resetAds() it gets a banner again when it next becomes visible. It stays empty without a
/// QApplication. It also does in a QQuickWidget: there a host adds the banner to the widget's
/// window with Velmora::addBannerForWindow().
///
/// Lengths are device-independent pixels.
class BannerItem : public QQuickItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Banner)

    /// Name of the ad that is shown; empty before the first.
    Q_PROPERTY(QString adName READ adName NOTIFY adNameChanged FINAL)
    /// True while a banner is shown in the item, whether the window is exposed or not. False before
    /// the first picture, while the banner is hidden, and when ads are removed.
    Q_PROPERTY(bool shown READ isShown NOTIFY shownChanged FINAL)
    /// The part of the item that the banner covers with its shadow; empty while none is shown.
    Q_PROPERTY(QRectF rect READ rect NOTIFY rectChanged FINAL)
    /// The banner's height without its shadow. It is lower where the item is too small for it. A
    /// negative value counts as 0; NaN and infinity are ignored. Default: 100, or what
    /// Velmora.setBannersHeight() has set.
    Q_PROPERTY(double bannerHeight READ bannerHeight WRITE setBannerHeight NOTIFY
                   bannerHeightChanged FINAL)
    /// Hides the banner until it is set to false. The item keeps its size. Default: false.
    Q_PROPERTY(bool hidden READ isHidden WRITE setHidden NOTIFY hiddenChanged FINAL)

public:
    explicit BannerItem(QQuickItem *parent = nullptr);

    QString adName() const { return m_adName; }
    bool isShown() const { return m_isShown; }
    QRectF rect() const { return m_rect; }
    double bannerHeight() const { return m_bannerHeight; }
    void setBannerHeight(double height);
    bool isHidden() const { return m_isHidden; }
    void setHidden(bool hidden);

Q_SIGNALS:
    void adNameChanged();
    void shownChanged();
    void rectChanged();
    void bannerHeightChanged();
    void hiddenChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &geometry, const QRectF &oldGeometry) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *) override;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;

private:
    /// Shows the banner to the framework as visible or not, and makes it if there is none.
    void followVisibility();
    void addBanner();
    void addControls();
    void followScreen();
    /// Takes over what the banner has become, and redraws it.
    void followBanner();
    void setState(const QString &adName, bool isShown, const QRectF &rect, double height);
    void updateImplicitSize();
    void postMouse(QEvent::Type type, const QSinglePointEvent &cause);
    /// Posts an event at a position outside the banner.
    void postOutside(QEvent::Type type, Qt::MouseButton button);

    std::unique_ptr<OffscreenBanner, OffscreenBanner::Deleter> m_banner;
    ItemExposure m_exposure;
    BannerControls *m_controls = nullptr; // owned by this
    QString m_adName;
    bool m_isShown = false;
    QRectF m_rect;
    double m_bannerHeight = 100;
    /// The host has set the height of this banner.
    bool m_hasOwnHeight = false;
    bool m_isHidden = false;
    bool m_isSeen = false;

    // What updatePaintNode() shows.
    QImage m_picture;
    QPointF m_picturePosition;
    bool m_isPictureNew = false;
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "BannerItem.h"

#include "WidgetApplication.h"

#include <QtCore/QCoreApplication>
#include <QtQuick/QQuickWindow>
#include <QtQuick/QSGImageNode>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

// The implicit size: the usual shape of a banner, and room for the shadow below it.
constexpr double UsualAspectRatio = 728.0 / 90;
constexpr double ShadowHeight = 4;

// A position outside every banner.
constexpr QPointF Outside(-1e4, -1e4);

} // namespace

BannerItem::BannerItem(QQuickItem *parent) : QQuickItem(parent), m_exposure(this) {
    setFlag(ItemHasContents);
    // Touches arrive as mouse events, which Qt Quick makes of them.
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    updateImplicitSize();
    connect(&m_exposure, &ItemExposure::changed, this, &BannerItem::followVisibility);
    // Widgets can't outlive the QApplication, an item can.
    if (auto *application = QCoreApplication::instance())
        connect(application, &QCoreApplication::aboutToQuit, this, [this] { m_banner.reset(); });
}

// Properties.

void BannerItem::setBannerHeight(double height) {
    if (!std::isfinite(height))
        return;
    m_hasOwnHeight = true;
    const auto controller = m_banner ? m_banner->controller() : nullptr;
    if (controller)
        controller->setHeight(height);
    height = std::max(height, 0.0);
    if (m_bannerHeight == height)
        return;
    m_bannerHeight = height;
    updateImplicitSize();
    Q_EMIT bannerHeightChanged();
}

void BannerItem::setHidden(bool hidden) {
    if (m_isHidden == hidden)
        return;
    m_isHidden = hidden;
    followVisibility();
    followBanner();
    Q_EMIT hiddenChanged();
}

void BannerItem::setState(const QString &adName, bool isShown, const QRectF &rect, double height) {
    const bool isOtherName = std::exchange(m_adName, adName) != adName;
    const bool isOtherRect = std::exchange(m_rect, rect) != rect;
    const bool isOtherState = std::exchange(m_isShown, isShown) != isShown;
    const bool isOtherHeight = std::exchange(m_bannerHeight, height) != height;
    updateImplicitSize();
    if (isOtherName)
        Q_EMIT adNameChanged();
    if (isOtherRect)
        Q_EMIT rectChanged();
    if (isOtherState)
        Q_EMIT shownChanged();
    if (isOtherHeight)
        Q_EMIT bannerHeightChanged();
}

void BannerItem::updateImplicitSize() {
    if (m_banner || !isComponentComplete())
        setImplicitSize(m_bannerHeight * UsualAspectRatio, m_bannerHeight + ShadowHeight);
    else
        setImplicitSize(0, 0);
}

// The banner.

void BannerItem::addBanner() {
    if (m_banner || !WidgetApplication::exists())
        return;
    m_banner.reset(new OffscreenBanner);
    const auto controller = m_banner->controller();
    if (!controller) {
        m_banner.reset();
        return;
    }
    connect(m_banner.get(), &OffscreenBanner::changed, this, &BannerItem::followBanner);
    m_banner->setSize(size().toSize());
    if (m_hasOwnHeight)
        controller->setHeight(m_bannerHeight);
    followScreen();
}

void BannerItem::addControls() {
    m_controls = new BannerControls(this);
    connect(m_controls, &BannerControls::pressed, this, [this](const QString &control, bool byKey) {
        if (m_banner)
            m_banner->press(control, byKey);
    });
}

void BannerItem::followBanner() {
    polish();
    const auto controller = m_banner ? m_banner->controller() : nullptr;
    if (controller) {
        const bool isShown = !m_isHidden && !controller->isBannerHidden();
        setState(controller->selectBanner(), isShown,
                 isShown ? QRectF(controller->rectInWindow()) : QRectF(), controller->height());
        if (m_controls)
            m_controls->follow(m_isShown ? m_banner.get() : nullptr);
        return;
    }
    // A removed banner fades out first.
    if (m_banner && m_banner->paintedArea().isEmpty())
        m_banner.reset();
    setState(QString(), false, QRectF(), m_bannerHeight);
    if (m_controls)
        m_controls->follow(nullptr);
}

void BannerItem::followVisibility() {
    if (!isComponentComplete())
        return;
    const bool isSeen = m_exposure.isExposed() && !m_isHidden;
    const bool hasAppeared = isSeen && !m_isSeen;
    m_isSeen = isSeen;
    if (hasAppeared && !m_banner) {
        addBanner();
        updateImplicitSize();
    }
    if (m_banner)
        m_banner->setVisible(isSeen);
}

void BannerItem::followScreen() {
    if (m_banner && window())
        m_banner->setScreen(window()->screen());
}

void BannerItem::componentComplete() {
    QQuickItem::componentComplete();
    addBanner();
    addControls();
    followVisibility();
    followBanner();
}

void BannerItem::itemChange(ItemChange change, const ItemChangeData &data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        followScreen();
        polish();
    }
}

void BannerItem::geometryChange(const QRectF &geometry, const QRectF &oldGeometry) {
    QQuickItem::geometryChange(geometry, oldGeometry);
    if (!m_banner || geometry.size() == oldGeometry.size())
        return;
    m_banner->setSize(geometry.size().toSize());
    followBanner();
}

// Drawing.

void BannerItem::updatePolish() {
    if (m_banner && !m_isHidden && !m_banner->isVisible())
        return; // the last picture stays until the item can be seen again
    m_picture = m_banner && !m_isHidden ? m_banner->picture(window()->effectiveDevicePixelRatio())
                                        : QImage();
    m_picturePosition = m_banner ? m_banner->paintedArea().topLeft() : QPoint();
    m_isPictureNew = true;
    update();
}

QSGNode *BannerItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *) {
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (m_picture.isNull()) {
        delete node;
        return nullptr;
    }
    const bool isNew = std::exchange(m_isPictureNew, false);
    if (isNew || !node) {
        if (!node) {
            node = window()->createImageNode();
            node->setOwnsTexture(true);
            node->setFiltering(QSGTexture::Linear);
        }
        node->setTexture(window()->createTextureFromImage(m_picture));
    }
    node->setRect(QRectF(m_picturePosition, m_picture.deviceIndependentSize()));
    return node;
}

// Mouse events. The banner gets them on a later turn of the main loop, so that the host may destroy
// the item, its window or the QML engine in what a click calls: Qt Quick does not allow that while
// it delivers an event.

void BannerItem::postMouse(QEvent::Type type, const QSinglePointEvent &cause) {
    if (!m_banner)
        return;
    m_banner->post({type, cause.position(), cause.globalPosition().toPoint(), cause.button(),
                    cause.buttons(), cause.modifiers()});
    if (const QWidget *control = m_banner->controlAt(cause.position()))
        setCursor(control->cursor());
    else
        unsetCursor();
}

void BannerItem::postOutside(QEvent::Type type, Qt::MouseButton button) {
    if (m_banner)
        m_banner->post({type, Outside, Outside.toPoint(), button});
}

void BannerItem::mousePressEvent(QMouseEvent *event) {
    if (m_banner && m_banner->controlAt(event->position()))
        postMouse(QEvent::GraphicsSceneMousePress, *event);
    else
        event->ignore(); // for the items behind this one
}

void BannerItem::mouseMoveEvent(QMouseEvent *event) {
    postMouse(QEvent::GraphicsSceneMouseMove, *event);
}

void BannerItem::mouseReleaseEvent(QMouseEvent *event) {
    postMouse(QEvent::GraphicsSceneMouseRelease, *event);
}

void BannerItem::mouseUngrabEvent() {
    // Another item, such as a Flickable, has taken the pointer over: that is no click.
    postOutside(QEvent::GraphicsSceneMouseRelease, Qt::LeftButton);
}

void BannerItem::hoverEnterEvent(QHoverEvent *event) {
    postMouse(QEvent::GraphicsSceneMouseMove, *event);
}

void BannerItem::hoverMoveEvent(QHoverEvent *event) {
    postMouse(QEvent::GraphicsSceneMouseMove, *event);
}

void BannerItem::hoverLeaveEvent(QHoverEvent *) {
    postOutside(QEvent::GraphicsSceneMouseMove, Qt::NoButton);
}

} // namespace velmora

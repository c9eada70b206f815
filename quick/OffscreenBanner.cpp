// SPDX-License-Identifier: Apache-2.0
#include "OffscreenBanner.h"

#include <Velmora/Velmora.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <utility>

namespace velmora {

namespace {

// Not click(): an ad ignores keys for a moment after it has appeared.
void pressByKey(QAbstractButton *button) {
    const QPointer<QAbstractButton> target(button);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier);
        if (target)
            QCoreApplication::sendEvent(target, &event);
    }
}

} // namespace

void OffscreenBanner::Deleter::operator()(OffscreenBanner *banner) const {
    banner->disconnect();
    // deleteLater() would not do: the host may run an event loop in what a click calls.
    if (banner->m_isDelivering) {
        banner->m_isDisposed = true;
        banner->setVisible(false);
    } else {
        delete banner;
    }
}

OffscreenBanner::OffscreenBanner() : m_place(new BannerPlace), m_viewController(m_place) {
    m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    m_proxy = m_scene.addWidget(m_place);
    m_proxy->hide();
    // Queued, so that this may be destroyed in what the signal calls.
    connect(&m_scene, &QGraphicsScene::changed, this, &OffscreenBanner::changed,
            Qt::QueuedConnection);
    Velmora::addBannerForViewController(&m_viewController, m_place);
    for (const auto &banner : Velmora::BControllers()) {
        if (banner->window() == m_place)
            m_controller = banner;
    }
    // Of an invisible banner the scene does not tell that it was removed.
    connect(m_place, &BannerPlace::childrenChanged, this, &OffscreenBanner::changed,
            Qt::QueuedConnection);
}

bool OffscreenBanner::isVisible() const {
    return m_proxy->isVisible();
}

void OffscreenBanner::setVisible(bool visible) {
    m_proxy->setVisible(visible);
}

void OffscreenBanner::setSize(const QSize &size) {
    m_proxy->resize(size);
    m_scene.setSceneRect(QRectF(QPointF(), size));
}

void OffscreenBanner::setScreen(QScreen *screen) {
    m_place->setScreen(screen);
}

QRect OffscreenBanner::paintedArea() const {
    return m_place->childrenRect() & m_place->rect();
}

QImage OffscreenBanner::picture(double devicePixelRatio) const {
    const QRect area = paintedArea();
    QImage picture((QSizeF(area.size()) * devicePixelRatio).toSize(),
                   QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return {};
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    m_place->render(&picture, QPoint(), area, QWidget::DrawChildren);
    return picture;
}

const QWidget *OffscreenBanner::controlAt(const QPointF &position) const {
    return m_place->childAt(position.toPoint());
}

void OffscreenBanner::post(const Mouse &mouse) {
    QMetaObject::invokeMethod(
        this, [this, mouse] { deliver(mouse); }, Qt::QueuedConnection);
}

QAbstractButton *OffscreenBanner::control(const QString &name) const {
    return m_place->findChild<QAbstractButton *>(name);
}

void OffscreenBanner::press(const QString &control, bool byKey) {
    QMetaObject::invokeMethod(
        this,
        [this, control, byKey] {
            deliver([button = this->control(control), byKey] {
                if (button)
                    byKey ? pressByKey(button) : button->click();
            });
        },
        Qt::QueuedConnection);
}

void OffscreenBanner::deliver(const Mouse &mouse) {
    QGraphicsSceneMouseEvent event(mouse.type);
    event.setScenePos(mouse.position);
    event.setLastScenePos(mouse.position);
    event.setScreenPos(mouse.screenPosition);
    event.setLastScreenPos(mouse.screenPosition);
    event.setButton(mouse.button);
    event.setButtons(mouse.buttons);
    event.setModifiers(mouse.modifiers);
    deliver([&] { QCoreApplication::sendEvent(&m_scene, &event); });
}

void OffscreenBanner::deliver(const std::function<void()> &event) {
    if (m_isDisposed)
        return;
    const bool isNested = std::exchange(m_isDelivering, true);
    event();
    m_isDelivering = isNested;
    if (m_isDisposed && !isNested)
        deleteLater();
}

} // namespace velmora

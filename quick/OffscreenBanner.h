// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "BannerPlace.h"

#include <Velmora/BannerController.h>
#include <Velmora/ViewController.h>

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtGui/QCursor>
#include <QtGui/QImage>
#include <QtWidgets/QGraphicsScene>

#include <functional>
#include <memory>

class QAbstractButton;
class QGraphicsProxyWidget;

namespace velmora {

/// A banner that is drawn into a picture instead of on a screen, and gets its mouse events from
/// whoever shows the picture. The framework takes it for a banner in a visible window.
///
/// The banner lies in a widget that is embedded in a graphics scene without a view: Qt then never
/// shows the widget's window, collects what has to be repainted, and keeps track of the widget that
/// the pointer is over and of the one that was pressed. Main thread only; needs a QApplication.
class OffscreenBanner : public QObject {
    Q_OBJECT

public:
    /// A mouse event at a position in the banner's widget.
    struct Mouse {
        QEvent::Type type; ///< QEvent::GraphicsSceneMousePress, ...Move or ...Release
        QPointF position;
        QPoint screenPosition;
        Qt::MouseButton button = Qt::NoButton;
        Qt::MouseButtons buttons = Qt::NoButton;
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    };

    /// For std::unique_ptr. The banner is destroyed at once, or after the event that it is
    /// handling.
    struct Deleter {
        void operator()(OffscreenBanner *banner) const;
    };

    /// Adds a banner, unless ads are removed. It is not visible yet.
    OffscreenBanner();

    /// Null when ads are or were removed.
    std::shared_ptr<BannerController> controller() const { return m_controller.lock(); }

    bool isVisible() const;
    /// While invisible the banner is not repainted and does not change.
    void setVisible(bool visible);
    void setSize(const QSize &size);
    /// Chooses the screen for whose pixels the banner's picture is decoded.
    void setScreen(QScreen *screen);

    /// The part of the widget that the banner and its shadow cover now.
    QRect paintedArea() const;
    /// That part as a picture with a transparent background; null when it is empty.
    QImage picture(double devicePixelRatio) const;

    /// The control at a position; null where the banner takes no mouse events.
    const QWidget *controlAt(const QPointF &position) const;
    /// Delivers a mouse event on the next turn of the main loop.
    void post(const Mouse &mouse);
    /// The control with an object name; null when there is none.
    QAbstractButton *control(const QString &name) const;
    /// Presses that control on the next turn of the main loop.
    /// @param byKey not by assistive technology; an ad may ignore it then
    void press(const QString &control, bool byKey);

Q_SIGNALS:
    /// The banner has to be drawn again, or was removed. Emitted on a later turn of the main loop.
    void changed();

private:
    void deliver(const Mouse &mouse);
    /// Runs what may destroy this; then it is destroyed afterwards.
    void deliver(const std::function<void()> &event);

    QGraphicsScene m_scene;
    /// Owned by the scene, and the place by it.
    QGraphicsProxyWidget *m_proxy;
    BannerPlace *m_place;
    ViewController m_viewController;
    std::weak_ptr<BannerController> m_controller;
    bool m_isDelivering = false;
    bool m_isDisposed = false;
};

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "BannerNativeWindow.h"

#include "MainQueue.h"

#include <Velmora/Support.h>

#include <QtCore/QEvent>

#include <utility>

namespace velmora {

BannerNativeWindow::BannerNativeWindow(QWidget *place, QWidget *picture)
    : QObject(place), m_place(place), m_picture(picture) {
    followSuperview();
}

void BannerNativeWindow::followSuperview() {
    leaveWindow();
    m_ancestors.followToWindow(m_place);
    QWidget *superview = m_place->parentWidget();
    m_siblings =
        superview ? std::make_unique<NativeSiblings>(superview, [this] { update(); }) : nullptr;
    updateLater();
}

bool BannerNativeWindow::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_place) {
        // When Qt creates the host's native window again, the native windows in it are gone,
        // without an event for their owners.
        if (event->type() == QEvent::WinIdChange) {
            m_isWindowLost = true;
            updateLater();
        }
        return false;
    }
    switch (event->type()) {
    case QEvent::ParentChange:
        followSuperview();
        break;
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::ZOrderChange: // a place with a native window of its own comes to lie over this one
        // At once, so that the picture moves together with the host's content.
        if (m_window)
            update();
        else
            updateLater();
        break;
    default:
        break;
    }
    return false;
}

void BannerNativeWindow::updateLater() {
    if (std::exchange(m_updatePosted, true))
        return;
    MainQueue::post(this, [this] {
        m_updatePosted = false;
        update();
    });
}

void BannerNativeWindow::update() {
    QWidget *superview = m_place->parentWidget();
    if (!superview || !m_siblings || !m_picture)
        return;
    // The host's native window may have been created again, and this one destroyed with it.
    if (m_siblings->follow() || m_isWindowLost || (m_window && !m_window->isWhole()))
        leaveWindow();
    m_isWindowLost = false;
    // Plain widgets get native windows of their own when Qt gives them to their siblings.
    NativeSiblings::setLayer(m_place->windowHandle(), NativeSiblings::Layer::Banner);
    const bool isCovered =
        m_place->isVisible() &&
        m_siblings->areVisible(NativeSiblings::Layer::Banner, m_place->geometry());
    if (!isCovered && m_place->isVisible())
        leaveWindow();
    if (isCovered && !m_window)
        enterWindow(superview);
    if (!m_window)
        return;
    m_window->setFrame(m_place->geometry());
    m_window->setVisible(m_place->isVisible());
    if (!m_siblings->isOverlayVisible())
        m_window->raise();
}

void BannerNativeWindow::enterWindow(QWidget *superview) {
    LOG(QStringLiteral("the banner gets a native window, over those of the host"));
    m_window = std::make_unique<OverlayWindow>(superview, NativeSiblings::Layer::Banner,
                                               [this] { update(); });
    m_window->setView(m_picture);
    m_picture->show();
}

void BannerNativeWindow::leaveWindow() {
    if (!m_window)
        return;
    if (m_picture) {
        m_picture->setParent(m_place);
        m_picture->setGeometry(m_place->rect());
        m_picture->show();
    }
    m_window.reset();
}

} // namespace velmora

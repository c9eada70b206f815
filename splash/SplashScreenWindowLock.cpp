// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenWindowLock.h"

#include "Window.h"

namespace velmora {

void SplashScreenWindowLock::lock(QWidget *window) {
    Window *companion = Window::of(window);
    if (!companion)
        return;
    m_oldCollectionBehavior = companion->collectionBehavior();
    m_wasResizable = companion->isResizable();
    companion->setStyleMask(companion->styleMask() & ~Window::Resizable);
    companion->setCollectionBehavior(companion->collectionBehavior() & Window::FullScreenAuxiliary);
}

void SplashScreenWindowLock::unlock(QWidget *window) {
    Window *companion = Window::of(window);
    if (!companion)
        return;
    // Also when the window was not resizable before: this removes our lock only, and a host that
    // has fixed the size keeps it fixed.
    companion->setStyleMask(companion->styleMask() | Window::Resizable);
    companion->setCollectionBehavior(Window::FullScreenPrimary);
}

} // namespace velmora

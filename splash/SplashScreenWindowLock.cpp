// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenWindowLock.h"

#include "Window.h"

namespace velmora {

void SplashScreenWindowLock::lock(QWidget *window) {
    Window *facts = Window::of(window);
    if (!facts)
        return;
    m_oldCollectionBehavior = facts->collectionBehavior();
    m_wasResizable = facts->isResizable();
    facts->setStyleMask(facts->styleMask() & ~Window::Resizable);
    facts->setCollectionBehavior(facts->collectionBehavior() & Window::FullScreenAuxiliary);
}

void SplashScreenWindowLock::unlock(QWidget *window) {
    Window *facts = Window::of(window);
    if (!facts)
        return;
    // Also when the window was not resizable before: this removes our lock only, and a host that
    // has fixed the size keeps it fixed.
    facts->setStyleMask(facts->styleMask() | Window::Resizable);
    facts->setCollectionBehavior(Window::FullScreenPrimary);
}

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "Animator.h"

#include "Fade.h"
#include "KeyFocus.h"
#include "ReducedMotion.h"

namespace velmora {

namespace {

// False when motion is reduced, when the view is not on screen, so that nobody would see a fade, or
// in a window that does not have the user's attention, and when one of its parents is fading: Qt
// can't draw an effect inside another one.
bool canFade(const QWidget *view) {
    if (ReducedMotion::current().isOn())
        return false;
    const QWidget *superview = view->parentWidget();
    if (!superview || !superview->isVisible() || view->window()->isMinimized() ||
        !KeyFocus::isInKeyWindow(*view))
        return false;
    for (; superview; superview = superview->parentWidget()) {
        if (Fade::of(superview))
            return false;
    }
    return true;
}

} // namespace

void Animator::setHidden(QWidget *view, bool hidden) {
    if (isHidden(view) == hidden)
        return;
    if (!canFade(view)) {
        setHiddenNow(view, hidden);
        return;
    }
    Fade *fade = Fade::of(view);
    if (!fade)
        fade = new Fade(view);
    fade->run(hidden);
}

void Animator::setHiddenNow(QWidget *view, bool hidden) {
    if (Fade *fade = Fade::of(view))
        fade->finish(hidden);
    else
        view->setVisible(!hidden);
}

bool Animator::isHidden(const QWidget *view) {
    const Fade *fade = Fade::of(view);
    return fade ? fade->isTowardsHidden() : view->isHidden();
}

void Animator::contentChanged(const QWidget *part) {
    for (; part; part = part->parentWidget()) {
        if (Fade *fade = Fade::of(part))
            fade->redraw();
    }
}

void Animator::remove(QWidget *view) {
    if (view->isHidden() || !canFade(view)) {
        view->hide();
        view->setParent(nullptr);
        view->deleteLater();
        return;
    }
    Fade *fade = Fade::of(view);
    if (!fade)
        fade = new Fade(view);
    fade->removeViewAtEnd();
    fade->run(true);
}

} // namespace velmora

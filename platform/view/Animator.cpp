// SPDX-License-Identifier: Apache-2.0
#include "Animator.h"

#include "Fade.h"

namespace velmora {

namespace {

// Whether a fade of the view would be seen as one: it is on screen, and nothing that contains it
// is fading itself. Qt can't draw a fade within a fade.
bool canFade(const QWidget *view) {
    const QWidget *superview = view->parentWidget();
    if (!superview || !superview->isVisible() || view->window()->isMinimized())
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

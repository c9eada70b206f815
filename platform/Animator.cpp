#include "platform/Animator.h"

#include "platform/Fade.h"

namespace velmora {

namespace {

bool isOnScreen(const QWidget *view) {
    const QWidget *superview = view->parentWidget();
    return superview && superview->isVisible() && !view->window()->isMinimized();
}

} // namespace

void Animator::setHidden(QWidget *view, bool hidden) {
    if (isHidden(view) == hidden)
        return;
    if (!isOnScreen(view)) {
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
    if (view->isHidden() || !isOnScreen(view)) {
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

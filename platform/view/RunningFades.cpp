// SPDX-License-Identifier: Apache-2.0
#include "RunningFades.h"

#include "Fade.h"
#include "ProcessRoot.h"

#include <algorithm>

namespace velmora {

namespace {

QRect frameInWindow(const QWidget *view) {
    return {view->mapTo(view->window(), QPoint()), view->size()};
}

// The child of a view that is, or contains, another view.
qsizetype indexOfPart(const QWidget *superview, const QWidget *view) {
    while (view->parentWidget() != superview)
        view = view->parentWidget();
    return superview->children().indexOf(view);
}

// Whether a view of the same window is drawn after another one and over all of it. It is taken to
// be opaque, as videos, stills and splash screens are.
bool covers(const QWidget *upper, const QWidget *lower) {
    if (upper->window() != lower->window() || !frameInWindow(upper).contains(frameInWindow(lower)))
        return false;
    const QWidget *both = upper->parentWidget();
    while (both && !both->isAncestorOf(lower))
        both = both->parentWidget();
    return both && upper != lower && !lower->isAncestorOf(upper) && !upper->isAncestorOf(lower) &&
           indexOfPart(both, upper) > indexOfPart(both, lower);
}

} // namespace

void RunningFades::add(Fade *fade) {
    ProcessRoot::get<RunningFades>().m_fades.append(fade);
}

void RunningFades::remove(Fade *fade) {
    if (auto *running = ProcessRoot::existing<RunningFades>())
        running->m_fades.removeOne(fade);
}

void RunningFades::updateCovered(const QWidget *window) {
    const auto *running = ProcessRoot::existing<RunningFades>();
    const QList<Fade *> fades = running ? running->m_fades : QList<Fade *>();
    for (Fade *fade : fades) {
        if (fade->view()->window() == window)
            fade->setCovered(isCovered(fade, fades));
    }
}

bool RunningFades::isCovered(const Fade *fade, const QList<Fade *> &others) {
    return fade->mayBeCovered() &&
           std::any_of(others.begin(), others.end(), [fade](const Fade *other) {
               return !other->isTowardsHidden() && covers(other->view(), fade->view());
           });
}

} // namespace velmora

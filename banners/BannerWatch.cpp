// SPDX-License-Identifier: Apache-2.0
#include "BannerWatch.h"

#include "BannerAreas.h"

#include <QtCore/QEvent>

namespace velmora {

BannerWatch::BannerWatch(QWidget *view) : QObject(view), m_view(view) {
    followParents();
}

BannerWatch::~BannerWatch() {
    BannerAreas::checkLater();
}

bool BannerWatch::eventFilter(QObject *, QEvent *event) {
    switch (event->type()) {
    case QEvent::ParentChange:
        followParents();
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::ContentsRectChange:
        BannerAreas::checkLater();
        break;
    default:
        break;
    }
    return false;
}

void BannerWatch::followParents() {
    QList<QPointer<QWidget>> chain;
    for (QWidget *widget = m_view; widget; widget = widget->parentWidget()) {
        chain.append(widget);
        if (widget->isWindow())
            break;
    }
    // Filters that stay are not installed again: that would change the list of event filters, which
    // Qt may be iterating over.
    for (QWidget *widget : std::as_const(m_watched)) {
        if (widget && !chain.contains(widget))
            widget->removeEventFilter(this);
    }
    for (QWidget *widget : std::as_const(chain)) {
        if (!m_watched.contains(widget))
            widget->installEventFilter(this);
    }
    m_watched = chain;
}

} // namespace velmora

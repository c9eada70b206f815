// SPDX-License-Identifier: Apache-2.0
#include "BannerWatch.h"

#include "BannerAreas.h"

#include <QtCore/QEvent>

namespace velmora {

BannerWatch::BannerWatch(QWidget *view) : QObject(view), m_view(view) {
    m_ancestors.followToWindow(view);
}

BannerWatch::~BannerWatch() {
    BannerAreas::checkLater();
}

bool BannerWatch::eventFilter(QObject *, QEvent *event) {
    switch (event->type()) {
    case QEvent::ParentChange:
        m_ancestors.followToWindow(m_view);
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

} // namespace velmora

// SPDX-License-Identifier: Apache-2.0
#include "BannerPlace.h"

#include <QtCore/QEvent>

namespace velmora {

BannerPlace::BannerPlace() {
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
}

void BannerPlace::childEvent(QChildEvent *event) {
    QWidget::childEvent(event);
    Q_EMIT childrenChanged();
}

} // namespace velmora

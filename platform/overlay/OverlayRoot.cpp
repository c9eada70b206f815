// SPDX-License-Identifier: Apache-2.0
#include "OverlayRoot.h"

#include <QtGui/QPainter>

namespace velmora {

void OverlayRoot::paintEvent(QPaintEvent *) {
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace velmora

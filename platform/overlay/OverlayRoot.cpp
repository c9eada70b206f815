// SPDX-License-Identifier: Apache-2.0
#include "OverlayRoot.h"

#include <QtGui/QPainter>

namespace velmora {

void OverlayRoot::paintEvent(QPaintEvent *) {
    const auto *view = findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    const QVariant color = view ? view->property("color") : QVariant();
    QPainter(this).fillRect(rect(), color.isValid() ? color.value<QColor>() : QColor(Qt::black));
}

} // namespace velmora

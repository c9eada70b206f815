// SPDX-License-Identifier: Apache-2.0
#include "TimeProgressAccessible.h"

#include <algorithm>

namespace velmora {

namespace {

QAccessibleInterface *accessibleRing(const QString &, QObject *object) {
    auto *ring = qobject_cast<TimeProgressView *>(object);
    return ring ? new TimeProgressAccessible(ring) : nullptr;
}

} // namespace

void TimeProgressAccessible::install() {
    QAccessible::installFactory(accessibleRing);
}

void *TimeProgressAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant TimeProgressAccessible::currentValue() const {
    const auto *ring = static_cast<const TimeProgressView *>(widget());
    return ring ? int(std::clamp<qint64>(ring->val1(), 0, 100)) : 0;
}

} // namespace velmora

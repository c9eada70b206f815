// SPDX-License-Identifier: Apache-2.0
#include "BannerAccessible.h"

#include "ButtonAccessible.h"

#include <QtCore/QPointer>
#include <QtCore/QVariant>

namespace velmora {

namespace {

constexpr const char *Picture = "accessiblePicture";

QAccessibleInterface *accessibleBanner(const QString &, QObject *object) {
    return object && object->property(Picture).isValid()
               ? new BannerAccessible(static_cast<QWidget *>(object))
               : nullptr;
}

} // namespace

void BannerAccessible::install(QWidget *banner, QWidget *picture) {
    banner->setProperty(Picture, QVariant::fromValue(QPointer<QWidget>(picture)));
    ButtonAccessible::setParent(picture, banner);
    QAccessible::installFactory(accessibleBanner);
}

QWidget *BannerAccessible::picture() const {
    return widget() ? widget()->property(Picture).value<QPointer<QWidget>>() : nullptr;
}

QAccessibleInterface *BannerAccessible::child(int index) const {
    return index == 0 ? QAccessible::queryAccessibleInterface(picture()) : nullptr;
}

int BannerAccessible::indexOfChild(const QAccessibleInterface *child) const {
    return child && child->object() == picture() ? 0 : -1;
}

} // namespace velmora

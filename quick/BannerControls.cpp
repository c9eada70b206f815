// SPDX-License-Identifier: Apache-2.0
#include "BannerControls.h"

#include "OffscreenBanner.h"

#include <QtQml/QQmlComponent>
#include <QtQml/qqml.h>
#include <QtWidgets/QAbstractButton>

namespace velmora {

namespace {

constexpr char Source[] = R"(
import QtQuick

Item {
    id: group
    signal pressed(string control, bool byKey)

    component Control: Item {
        property int role
        property string title
        activeFocusOnTab: visible && group.inTabOrder
        Accessible.role: role
        Accessible.name: title
        Accessible.focusable: activeFocusOnTab
        Accessible.onPressAction: group.pressed(objectName, false)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Space || event.key === Qt.Key_Return
                || event.key === Qt.Key_Enter
            if (event.accepted && !event.isAutoRepeat)
                group.pressed(objectName, true)
        }
        Rectangle {
            anchors.fill: parent
            visible: parent.activeFocus
            color: "transparent"
            border { width: 1; color: "black" }
            Rectangle {
                anchors { fill: parent; margins: 1 }
                color: "transparent"
                border { width: 2; color: "white" }
            }
        }
    }

    property bool inTabOrder: true
    anchors.fill: parent
    visible: false
    Accessible.role: Accessible.Grouping
    // The close button first, so that nobody comes to the ad without having passed it.
    Control { objectName: "closeButton"; role: Accessible.Button; z: 1 }
    Control { objectName: "playButton"; role: Accessible.Button; z: 1 }
    Control { objectName: "bannerImage"; role: Accessible.Link }
}
)";

} // namespace

BannerControls::BannerControls(QQuickItem *item) : QObject(item) {
    QQmlEngine *engine = qmlEngine(item);
    if (!engine)
        return;
    QQmlComponent component(engine);
    component.setData(Source, QUrl());
    auto *group = qobject_cast<QQuickItem *>(component.beginCreate(qmlContext(item)));
    if (!group)
        return;
    group->setParent(item);
    group->setParentItem(item);
    component.completeCreate();
    m_group = group;
    connect(group, SIGNAL(pressed(QString, bool)), this, SIGNAL(pressed(QString, bool)));
}

void BannerControls::follow(const OffscreenBanner *banner) {
    if (!m_group)
        return;
    m_group->setVisible(banner);
    const auto items = m_group->childItems();
    for (QQuickItem *item : items) {
        const QAbstractButton *control = banner ? banner->control(item->objectName()) : nullptr;
        const bool isShown = control && !control->isHidden();
        item->setVisible(isShown);
        if (!isShown)
            continue;
        const QRect place(control->mapTo(control->window(), QPoint()), control->size());
        item->setPosition(place.topLeft());
        item->setSize(place.size());
        item->setProperty("title", control->accessibleName());
        m_group->setProperty("inTabOrder", control->focusPolicy() != Qt::NoFocus);
    }
}

} // namespace velmora

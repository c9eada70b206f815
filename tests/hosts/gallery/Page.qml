// SPDX-License-Identifier: Apache-2.0
import QtQuick

Rectangle {
    color: "#ff00ff"

    Text {
        anchors.centerIn: parent
        text: "A page of the host"
        font.pixelSize: 32
    }
    // Something that is animated, so that frames are drawn all the time.
    Rectangle {
        width: 40
        height: 40
        y: 40
        NumberAnimation on x {
            from: 0
            to: 400
            duration: 2000
            loops: Animation.Infinite
        }
    }
}

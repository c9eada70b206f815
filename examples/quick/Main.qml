// SPDX-License-Identifier: Apache-2.0
import QtQuick
import Velmora

Window {
    id: window
    width: 900
    height: 600
    visible: true
    title: "A Qt Quick host"

    Text {
        anchors.centerIn: parent
        text: "A host in Qt Quick"
        font.pixelSize: 28
    }
    Banner {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        onShownChanged: console.log(shown ? "banner shown: " + adName : "no banner shown")
    }
    Timer { // a real host calls show() when its user pauses, after saving a file for example
        interval: 1000
        repeat: true
        running: true
        onTriggered: Velmora.show()
    }
    Connections {
        target: Velmora
        function onRemoveAdsClicked() { Velmora.removeAdsNow() }
    }
    Component.onCompleted: {
        Velmora.setSplashScreenDelay(3)
        Velmora.setSplashScreenSkippedWhenEmpty(true) // without a video, nobody waits for one
        Velmora.addSplashScreenToWindow(window)
    }
}

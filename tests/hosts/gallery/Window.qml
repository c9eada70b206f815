// SPDX-License-Identifier: Apache-2.0
import QtQuick

Window {
    width: 720
    height: 540

    Page {
        anchors.fill: parent
    }
}

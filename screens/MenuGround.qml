import QtQuick
import Brinmoor

// What a menu lies on.
Item {
    ShadowShape {
        anchors.fill: parent
        anchors.leftMargin: -blur
        anchors.rightMargin: -blur
        anchors.topMargin: 8 - blur
        anchors.bottomMargin: -8 - blur
        radius: 14
        blur: 24
        color: Theme.shadow2
    }
    Rectangle {
        anchors.fill: parent
        radius: 14
        color: Theme.raised
        border.width: 1
        border.color: Theme.edge
    }
}

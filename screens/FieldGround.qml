import QtQuick
import Brinmoor

// The ground of everything that is typed into.
Item {
    id: ground

    property bool focused: false
    property bool hovered: false
    property int radius: 10

    Rectangle {
        visible: ground.focused
        anchors.fill: parent
        anchors.margins: -3
        radius: ground.radius + 3
        color: Theme.ring
    }
    Rectangle {
        anchors.fill: parent
        radius: ground.radius
        color: Theme.surface
        border.width: 1
        border.color: ground.focused ? Theme.sage : ground.hovered ? Theme.fieldHover : Theme.field
        Behavior on border.color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A whole row that does something.
T.Button {
    id: control

    required property string drawing
    /// Which corners are the group's own.
    property bool last: false

    width: parent ? parent.width : 0
    height: 48
    padding: 0
    hoverEnabled: true

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Item {
        Rectangle {
            anchors.fill: parent
            radius: control.y === 0 || control.last ? 13 : 0
            color: control.down ? Theme.press
                                : control.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
            border.width: control.visualFocus ? 2 : 0
            border.color: Theme.sage
            Behavior on color {
                ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
            }
        }
        Rectangle {
            visible: control.y > 0
            width: parent.width
            height: 1
            color: Theme.separator
        }
    }
    contentItem: Item {
        opacity: control.enabled ? 1 : 0.4

        IconShape {
            x: 16
            y: 16
            width: 16
            height: 16
            name: control.drawing
            color: Theme.ink2
        }
        PlainText {
            x: 46
            width: parent.width - 90
            height: parent.height
            text: control.text
            font: Theme.label
        }
        IconShape {
            x: parent.width - 29
            y: 16
            width: 16
            height: 16
            name: "actions/16/go-next"
            color: Theme.ink3
        }
    }
}

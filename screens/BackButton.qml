pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The way back to where a page came from. Its arrow stands on the edge of the page, its ground
// reaches beyond it.
T.Button {
    id: control

    implicitWidth: Math.ceil(implicitContentWidth) + 14
    implicitHeight: 28
    padding: 0
    hoverEnabled: true
    font: Theme.sans(13, Font.Medium)

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 8
        color: control.down ? Theme.press : control.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
        Behavior on color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: ButtonLabel {
        inset: 5
        gap: 3
        drawing: "actions/16/go-previous"
        drawingColor: Theme.ink2
        text: control.text
        font: control.font
    }
}

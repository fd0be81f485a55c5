pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One of several views to choose from, with or without a drawing.
T.Button {
    id: control

    property bool selected: false
    property string drawing: ""

    implicitWidth: Math.ceil(implicitContentWidth)
    implicitHeight: 30
    padding: 0
    hoverEnabled: true
    font: Theme.sans(13, control.selected ? Font.DemiBold : Font.Medium)
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 10
        color: control.selected ? Theme.tint
                                : control.down ? Theme.press
                                               : control.hovered ? Theme.hover
                                                                 : Qt.alpha(Theme.hover, 0)
        Behavior on color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Row {
        leftPadding: 12
        rightPadding: 12
        spacing: 7

        IconShape {
            visible: control.drawing.length > 0
            y: Math.round((parent.height - height) / 2)
            width: 16
            height: 16
            name: control.drawing
            color: control.selected ? Theme.sage : Theme.ink2
        }
        PlainText {
            height: parent.height
            text: control.text
            color: control.selected ? Theme.sage : Theme.ink2
            font: control.font
        }
    }
}

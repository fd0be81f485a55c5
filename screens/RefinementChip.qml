pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One refinement of the list.
T.Button {
    id: control

    property string drawing: ""
    property string sign: ""
    property real greatestWidth: 240

    implicitWidth: Math.min(Math.ceil(implicitContentWidth) + leftPadding + rightPadding,
                            greatestWidth)
    implicitHeight: 26
    padding: 0
    leftPadding: 29 - (sign.length > 0 ? 7 : 0)
    rightPadding: 11
    hoverEnabled: true
    Accessible.description: Wording.words("Clear refinements")

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 13
        color: control.hovered || control.down ? Theme.tint2 : Theme.tint

        PlainText {
            x: 9
            height: parent.height
            text: control.sign
            color: Theme.sage
            font: Theme.filter
        }
        IconShape {
            visible: control.drawing.length > 0
            x: 8
            y: 5
            width: 16
            height: 16
            scale: 0.875
            name: control.drawing
            color: Theme.sage
        }
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
        }
    }
    contentItem: PlainText {
        text: control.text
        color: Theme.sage
        font: Theme.smallMedium
    }
}

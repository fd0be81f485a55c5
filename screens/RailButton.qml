pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One entry of the rail; its name stands in a tip beside it.
T.Button {
    id: control

    property string drawing: ""
    /// Drawn in place of a drawing.
    property string character: ""
    property bool selected: false
    readonly property color shade: selected ? Theme.sage : hovered ? Theme.ink : Theme.ink2

    implicitWidth: 40
    implicitHeight: 40
    padding: 0
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4
    Accessible.checkable: true
    Accessible.checked: selected

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 12
        color: control.selected ? Theme.tint
                                : control.down ? Theme.press
                                               : control.hovered ? Theme.hover : "transparent"
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Item {
        IconShape {
            visible: control.drawing.length > 0
            anchors.centerIn: parent
            width: 22
            height: 22
            name: control.drawing
            color: control.shade
        }
        PlainText {
            anchors.fill: parent
            text: control.character
            color: control.shade
            font: Theme.sans(22, Font.Light)
            horizontalAlignment: Text.AlignHCenter
        }
    }

    HelpTip {
        visible: control.hovered || control.visualFocus
        text: control.text
        x: control.width + 10
        y: (control.height - height) / 2
    }
}

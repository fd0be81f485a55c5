pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One entry of the rail; its name stands in a tip beside it.
T.Button {
    id: control

    required property string drawing
    property bool selected: false

    implicitWidth: 40
    implicitHeight: 40
    padding: 0
    hoverEnabled: true
    Accessible.checkable: true
    Accessible.checked: selected

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
            anchors.centerIn: parent
            width: 22
            height: 22
            name: control.drawing
            color: control.selected ? Theme.sage : control.hovered ? Theme.ink : Theme.ink2
        }
    }

    HelpTip {
        visible: control.hovered
        text: control.text
        x: control.width + 10
        y: (control.height - height) / 2
    }
}

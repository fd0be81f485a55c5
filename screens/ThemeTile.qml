pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One of the themes, drawn in its own colours.
T.Button {
    id: control

    required property bool forDark
    required property bool selected

    implicitHeight: Math.round((width - 16) * 124 / 284) + 50
    padding: 0
    hoverEnabled: true
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.description: selected ? Wording.words("Selected") : Wording.words("Not selected")

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Item {
        FocusRing {
            visible: control.visualFocus
            shapeRadius: 14
            gap: 3
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: control.selected ? -1 : 0
            radius: control.selected ? 15 : 14
            color: Theme.surface
            border.width: control.selected ? 2 : 1
            border.color: control.selected ? Theme.sage
                                           : control.hovered ? Theme.fieldHover : Theme.line
        }
    }
    contentItem: Item {
        ThemePicture {
            x: 8
            y: 8
            width: parent.width - 16
            height: parent.height - 50
            forDark: control.forDark
        }
        PlainText {
            x: 16
            y: parent.height - 41
            width: parent.width - 60
            height: 40
            text: control.text
            font: Theme.sans(13, Font.Medium)
        }
        Rectangle {
            x: parent.width - 34
            y: parent.height - 30
            width: 18
            height: 18
            radius: 9
            color: control.selected ? Theme.sage : "transparent"
            border.width: control.selected ? 0 : 1
            border.color: Theme.muted

            IconShape {
                visible: control.selected
                anchors.centerIn: parent
                width: 16
                height: 16
                name: "actions/16/checkmark"
                color: Theme.onAccent
            }
        }
    }
}

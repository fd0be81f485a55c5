pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A tag of the library that what is typed could mean.
T.Button {
    id: control

    required property string tag
    property bool takenByTab: false
    property int greatestWidth: 240

    implicitWidth: Math.min(Math.ceil(row.implicitWidth) + 18, greatestWidth)
    implicitHeight: 24
    padding: 0
    leftPadding: 9
    rightPadding: 9
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: Wording.words("Add existing tag ") + tag

    Keys.onReturnPressed: control.click()
    Keys.onEnterPressed: control.click()

    background: Rectangle {
        radius: 8
        color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"
        border.width: 1
        border.color: control.hovered ? Theme.fieldHover : Theme.field
        FocusRing {
            visible: control.activeFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Item {
        Row {
            id: row

            height: parent.height
            spacing: 7

            PlainText {
                width: Math.min(implicitWidth, control.greatestWidth - 18 - (hint.visible ? 40 : 0))
                height: parent.height
                text: control.tag
                font: Theme.smallMedium
            }
            Rectangle {
                visible: control.takenByTab
                anchors.verticalCenter: parent.verticalCenter
                width: 1
                height: 12
                color: Theme.field
            }
            PlainText {
                id: hint
                visible: control.takenByTab
                height: parent.height
                text: Wording.words("Tab")
                color: Theme.ink3
                font: Theme.tag
            }
        }
    }

    HelpTip {
        visible: control.hovered
        text: control.text
    }
}

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

    implicitWidth: Math.min(Math.ceil(implicitContentWidth) + leftPadding + rightPadding,
                            greatestWidth)
    implicitHeight: 24
    padding: 0
    leftPadding: 9
    rightPadding: takenByTab ? Math.ceil(hint.width) + 16 : 9
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: Wording.words("Add existing tag ") + tag

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

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
    contentItem: PlainText {
        text: control.tag
        font: Theme.smallMedium
    }

    Row {
        id: hint

        anchors.right: parent.right
        anchors.rightMargin: 9
        height: parent.height
        visible: control.takenByTab
        spacing: 7

        Rectangle {
            y: 6
            width: 1
            height: 12
            color: Theme.field
        }
        PlainText {
            height: parent.height
            text: Wording.words("Tab")
            color: Theme.ink3
            font: Theme.tag
        }
    }
    HelpTip {
        visible: control.hovered
        text: control.text
    }
}

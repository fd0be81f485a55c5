pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A tag of the link under edit; pressing it takes the tag away.
T.Button {
    id: control

    required property string tag
    property int greatestWidth: 240

    implicitWidth: Math.min(Math.ceil(label.implicitWidth) + 9 + 4 + 12 + 6, greatestWidth)
    implicitHeight: 24
    padding: 0
    leftPadding: 9
    rightPadding: 6
    hoverEnabled: true
    text: Wording.words("Remove tag ") + tag

    Keys.onReturnPressed: control.click()
    Keys.onEnterPressed: control.click()

    background: Rectangle {
        radius: 8
        color: control.hovered || control.down ? Theme.tint2 : Theme.tint
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Item {
        PlainText {
            id: label
            anchors.left: parent.left
            anchors.right: cross.left
            anchors.rightMargin: 4
            height: parent.height
            text: control.tag
            color: Theme.sage
            font: Theme.smallMedium
        }
        IconShape {
            id: cross
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: 12
            height: 12
            name: "actions/16/edit-delete-remove"
            color: Theme.sage
        }
    }

    HelpTip {
        visible: control.hovered
        text: control.text
    }
}

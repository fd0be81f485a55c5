pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A tag of the link under edit; pressing it takes the tag away.
T.Button {
    id: control

    required property string tag
    property int greatestWidth: 240

    implicitWidth: Math.min(Math.ceil(implicitContentWidth) + leftPadding + rightPadding, greatestWidth)
    implicitHeight: 24
    padding: 0
    leftPadding: 9
    rightPadding: 22
    hoverEnabled: true
    text: Wording.words("Remove tag ") + tag

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 8
        color: control.hovered || control.down ? Theme.tint2 : Theme.tint
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: PlainText {
        text: control.tag
        color: Theme.sage
        font: Theme.smallMedium
    }

    IconShape {
        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        width: 12
        height: 12
        name: "actions/16/edit-delete-remove"
        color: Theme.sage
    }
    HelpTip {
        visible: control.hovered
        text: control.text
    }
}

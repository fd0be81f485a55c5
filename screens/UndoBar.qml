pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// Offers to take the last archiving back.
FocusScope {
    id: bar

    required property string message

    signal undone
    signal dismissed

    width: row.width + 24
    height: 44
    visible: opacity > 0
    enabled: message.length > 0
    opacity: enabled ? 1 : 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: shownMessage.text

    onMessageChanged: {
        // The words stay while the bar leaves.
        if (message.length > 0)
            shownMessage.text = message;
    }
    Component.onCompleted: shownMessage.text = message

    Behavior on opacity {
        NumberAnimation { duration: bar.enabled ? 200 : 140; easing.type: Easing.OutCubic }
    }
    transform: Translate {
        y: bar.enabled ? 0 : 12
        Behavior on y {
            NumberAnimation { duration: Theme.movement(bar.enabled ? 200 : 0); easing.type: Easing.OutCubic }
        }
    }

    MenuGround {
        anchors.fill: parent
    }
    // A click on the bar isn't one on the row under it.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
    }
    Row {
        id: row

        x: 15
        height: parent.height

        IconShape {
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16
            name: "places/16/folder-download"
            color: Theme.sage
        }
        PlainText {
            id: shownMessage
            height: parent.height
            leftPadding: 9
            rightPadding: 23
            font: Theme.filter
            Accessible.ignored: true
        }
        TextButton {
            anchors.verticalCenter: parent.verticalCenter
            small: true
            text: Wording.words("Undo")
            onClicked: bar.undone()
        }
        Item {
            width: 8
            height: 1
        }
        IconButton {
            id: dismiss
            anchors.verticalCenter: parent.verticalCenter
            drawing: "actions/16/edit-delete-remove"
            text: Wording.words("Dismiss undo")
            onClicked: bar.dismissed()

            HelpTip {
                visible: dismiss.hovered
                text: dismiss.text
            }
        }
    }
}

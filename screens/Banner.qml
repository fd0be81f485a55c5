pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// Something to say above the list: a notice that is dismissed, or with a title and a drawing an
// invitation that is followed.
Rectangle {
    id: banner

    required property string text
    property string title: ""
    property string drawing: ""
    property string actionText: ""
    property string dismissText: ""

    readonly property bool invites: title.length > 0

    signal followed
    signal dismissed

    implicitHeight: texts.height + (invites ? 24 : 20)
    radius: 14
    color: invites ? Theme.tint0 : Theme.surface
    border.width: invites ? 0 : 1
    border.color: Theme.line
    Accessible.role: Accessible.Notification
    Accessible.name: invites ? title + ". " + text : text

    Bubble {
        visible: banner.invites
        x: 15
        y: Math.round((parent.height - height) / 2)
        drawing: banner.drawing
        drawingSide: 22
    }
    Column {
        id: texts

        x: banner.invites ? 63 : 15
        y: Math.round((parent.height - height) / 2)
        width: button.x - x - 14

        PlainText {
            visible: banner.invites
            width: parent.width
            height: 20
            text: banner.title
            font: Theme.toastTitle
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            text: banner.text
            color: Theme.ink2
            wrapMode: Text.Wrap
            lineHeight: 18
            lineHeightMode: Text.FixedHeight
            Accessible.ignored: true
        }
    }
    Item {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: banner.invites ? 15 : 9
        width: banner.invites ? follow.width : dismiss.width
        height: parent.height

        PrimaryButton {
            id: follow
            visible: banner.invites
            anchors.verticalCenter: parent.verticalCenter
            small: true
            text: banner.actionText
            onClicked: banner.followed()
        }
        IconButton {
            id: dismiss
            visible: !banner.invites
            anchors.verticalCenter: parent.verticalCenter
            drawing: "actions/16/edit-delete-remove"
            text: banner.dismissText
            onClicked: banner.dismissed()

            HelpTip {
                visible: dismiss.hovered
                text: dismiss.text
            }
        }
    }
}

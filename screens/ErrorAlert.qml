pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What the application could not do, over the whole window until it is read.
FocusScope {
    id: alert

    required property string message

    signal dismissed

    visible: opacity > 0
    opacity: message.length > 0 ? 1 : 0
    enabled: message.length > 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title.text + ". " + shownMessage.text

    onEnabledChanged: {
        if (enabled)
            confirm.forceActiveFocus(Qt.PopupFocusReason);
    }
    onMessageChanged: {
        // The words stay while the alert leaves.
        if (message.length > 0)
            shownMessage.text = message;
    }

    Behavior on opacity {
        NumberAnimation { duration: alert.enabled ? 160 : 140 }
    }

    Shortcut {
        enabled: alert.enabled
        sequences: ["Esc"]
        onActivated: alert.dismissed()
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        // Nothing below is reached while the alert stands.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: wheel => wheel.accepted = true
        }
    }
    ShadowShape {
        anchors.fill: card
        anchors.leftMargin: -blur
        anchors.rightMargin: -blur
        anchors.topMargin: 18 - blur
        anchors.bottomMargin: -18 - blur
        radius: 18
        blur: 56
        color: Theme.shadow3
    }
    Rectangle {
        id: card

        anchors.centerIn: parent
        width: Math.min(412, parent.width - 32)
        height: column.height + 50
        radius: 18
        color: Theme.raised
        border.width: 1
        border.color: Theme.edge
        scale: alert.enabled ? 1 : 0.98
        Behavior on scale {
            NumberAnimation { duration: 200; easing.type: Easing.OutCubic }
        }

        Column {
            id: column

            x: 25
            y: 25
            width: parent.width - 50

            PlainText {
                id: title
                width: parent.width
                height: 22
                text: Wording.words("Couldn’t finish that")
                font: Theme.alertTitle
                Accessible.ignored: true
            }
            Item {
                width: 1
                height: 6
            }
            PlainText {
                id: shownMessage
                width: parent.width
                color: Theme.ink2
                wrapMode: Text.Wrap
                maximumLineCount: 12
                lineHeight: 20
                lineHeightMode: Text.FixedHeight
                Accessible.ignored: true
            }
            Item {
                width: 1
                height: 20
            }
            PrimaryButton {
                id: confirm
                anchors.right: parent.right
                focus: true
                text: Wording.words("OK")
                onClicked: alert.dismissed()
            }
        }
    }
}

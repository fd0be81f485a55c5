import QtQuick
import Brinmoor

// What stands where the links will be.
Item {
    id: state

    required property string keys

    Column {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -18
        width: Math.min(parent.width - 48, 480)

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 60
            height: 60
            radius: 20
            color: Theme.tint

            IconShape {
                anchors.centerIn: parent
                width: 28
                height: 28
                name: "places/22/mail-folder-inbox"
                color: Theme.sage
            }
        }
        Item {
            width: 1
            height: 18
        }
        PlainText {
            width: parent.width
            height: 28
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("A little room for good things.")
            font: Theme.smallHeading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 8
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 22
            spacing: 8

            PlainText {
                height: parent.height
                text: Wording.words("Open a browser tab and press")
                color: Theme.ink2
            }
            Keycap {
                y: 1
                keys: state.keys
            }
            PlainText {
                height: parent.height
                text: Wording.words("to save & close a tab")
                color: Theme.ink2
            }
        }
        Item {
            width: 1
            height: 4
        }
        PlainText {
            width: parent.width
            height: 22
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("Saved instantly. Right here when you need it.")
            color: Theme.ink3
            font: Theme.small
        }
    }
}

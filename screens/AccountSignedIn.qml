import QtQuick
import Brinmoor

FocusScope {
    id: page

    required property AccountScreen screen

    width: parent ? parent.width : 0
    height: column.height

    Column {
        id: column

        width: parent.width

        Bubble {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 72
            height: 72
            radius: 36
            drawing: "actions/22/user-identity"
            drawingSide: 33
        }
        Item {
            width: 1
            height: 14
        }
        PlainText {
            width: parent.width
            height: 30
            horizontalAlignment: Text.AlignHCenter
            text: page.screen.userName
            font: Theme.heading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 5
        }
        PlainText {
            width: parent.width
            height: 20
            horizontalAlignment: Text.AlignHCenter
            text: page.screen.userEmail
            color: Theme.ink2
        }
        Item {
            width: 1
            height: 17
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(330, parent.width)
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("Links and notes stay on your Mac. Signing out keeps your library available to open and export.")
            color: Theme.ink2
            wrapMode: Text.Wrap
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
        }
        AccountMessage {
            topSpace: 18
            text: page.screen.message
        }
        Item {
            width: 1
            height: 22
        }
        SecondaryButton {
            anchors.horizontalCenter: parent.horizontalCenter
            focus: true
            text: Wording.words("Sign out")
            enabled: page.screen.canSignOut
            onClicked: page.screen.signOut()
        }
    }
}

import QtQuick
import Brinmoor

FocusScope {
    id: form

    required property AccountScreen screen

    width: parent ? parent.width : 0
    height: column.height

    Column {
        id: column

        width: parent.width

        PlainText {
            width: parent.width
            height: 34
            topPadding: 4
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("Your little corner.")
            font: Theme.display
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 6
        }
        PlainText {
            width: parent.width
            height: 20
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("A home for your good finds.")
            color: Theme.ink2
            font: Theme.fieldText
        }
        Item {
            width: 1
            height: 18
        }
        PlainText {
            width: parent.width
            height: 20
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("We’ll email you a sign-in link. No password to remember.")
            color: Theme.ink2
        }
        Item {
            width: 1
            height: 20
        }
        AccountField {
            id: email
            label: Wording.words("Email")
            shown: form.screen.signInEmail
            enabled: form.screen.canSend
            focus: true
            inputMethodHints: Qt.ImhEmailCharactersOnly
            onEdited: text => form.screen.signInEmail = text
            onAccepted: form.screen.send()
        }
        Item {
            width: 1
            height: 14
        }
        AccountField {
            label: Wording.words("Name (optional)")
            shown: form.screen.signInName
            enabled: form.screen.canSend
            onEdited: text => form.screen.signInName = text
            onAccepted: form.screen.send()
        }
        AccountMessage {
            topSpace: 18
            text: form.screen.message
            busy: form.screen.inProgress
            drawing: form.screen.waitsForMail ? "actions/16/mail-message" : ""
        }
        Item {
            width: 1
            height: 18
        }
        Row {
            width: parent.width
            spacing: 8

            PrimaryButton {
                width: parent.width - (cancel.visible ? cancel.width + parent.spacing : 0)
                height: 38
                text: form.screen.sendText
                enabled: form.screen.canSend
                onClicked: form.screen.send()
            }
            SecondaryButton {
                id: cancel
                visible: form.screen.canCancel
                height: 38
                text: Wording.words("Cancel")
                onClicked: form.screen.cancel()
            }
        }
    }
}

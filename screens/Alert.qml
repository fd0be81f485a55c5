import QtQuick
import Brinmoor

// A question over the window. The keyboard starts on "Cancel" where the answer destroys.
Overlay {
    id: alert

    required property string title
    required property string message
    property string confirmText: Wording.words("OK")
    /// Empty: there is nothing to cancel, and Esc confirms.
    property string cancelText: Wording.words("Cancel")
    /// Another way out of the matter, at the left.
    property string asideText: ""
    property bool destructive: false

    signal confirmed
    signal asideChosen

    cardWidth: 412
    cardHeight: column.height + 50
    Accessible.role: Accessible.AlertMessage
    Accessible.name: alert.title + ". " + alert.message

    onShownChanged: {
        if (shown)
            alert.enter(alert.destructive ? cancel : confirm);
    }

    Column {
        id: column

        x: 25
        y: 25
        width: parent.width - 50

        PlainText {
            width: parent.width
            text: alert.title
            font: Theme.alertTitle
            wrapMode: Text.Wrap
            maximumLineCount: 3
            lineHeight: 22
            lineHeightMode: Text.FixedHeight
            Accessible.ignored: true
        }
        Item {
            width: 1
            height: 6
        }
        PlainText {
            width: parent.width
            text: alert.message
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
        Item {
            width: parent.width
            height: 34

            TextButton {
                // The word begins where the message does.
                x: -15
                visible: alert.asideText.length > 0
                text: alert.asideText
                onClicked: alert.asideChosen()
            }
            Row {
                anchors.right: parent.right
                spacing: 8

                SecondaryButton {
                    id: cancel
                    visible: alert.cancelText.length > 0
                    text: alert.cancelText
                    onClicked: alert.cancelled()
                }
                BaseButton {
                    id: confirm
                    text: alert.confirmText
                    fill: alert.destructive ? Theme.rust : Theme.sage
                    ringColor: fill
                    labelColor: Theme.onAccent
                    hoverGround: Theme.accentHover
                    pressGround: Theme.accentPress
                    onClicked: alert.confirmed()
                }
            }
        }
    }
}

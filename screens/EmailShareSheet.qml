pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// A link on its way into an e-mail.
Sheet {
    id: sheet

    required property EmailShareForm screen

    shown: screen.isShown
    title: heading.text
    first: subject
    onCancelled: screen.cancel()

    Keys.onReturnPressed: screen.openMail()
    Keys.onEnterPressed: screen.openMail()
    Shortcut {
        enabled: sheet.activeFocus
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: sheet.screen.openMail()
    }

    leftButtons: Item {
        width: 120
        height: copy.height

        TextButton {
            id: copy
            // Its words stand at the sheet's edge.
            x: -15
            text: copied.running ? Wording.words("Copied") : Wording.words("Copy email text")
            onClicked: {
                sheet.screen.copyText();
                copied.restart();
            }

            Timer {
                id: copied
                interval: 1600
            }
        }
    }
    buttons: [
        SecondaryButton {
            text: Wording.words("Cancel")
            onClicked: sheet.screen.cancel()
        },
        PrimaryButton {
            text: Wording.words("Open Mail")
            onClicked: sheet.screen.openMail()
        }
    ]

    PlainText {
        id: heading
        width: parent.width
        height: 30
        text: Wording.words("Pass it along.")
        font: Theme.heading
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: 3
    }
    PlainText {
        width: parent.width
        height: 20
        text: Wording.words("Choose a recipient and send from Mail.")
        color: Theme.ink2
    }
    Item {
        width: 1
        height: 19
    }
    SectionLabel {
        id: subjectLabel
        text: Wording.words("SUBJECT")
    }
    Item {
        width: 1
        height: 7
    }
    Field {
        id: subject
        width: parent.width
        text: sheet.screen.subject
        hint: Wording.words("An article for you")
        Accessible.name: subjectLabel.text
        Accessible.description: hint
        onTextEdited: sheet.screen.subject = text
    }
    Item {
        width: 1
        height: 16
    }
    CheckLine {
        id: includeNote
        text: Wording.words("Include a note")
        checked: sheet.screen.includeNote
        onToggled: {
            sheet.screen.includeNote = checked;
            if (checked)
                note.forceActiveFocus(Qt.OtherFocusReason);
        }
    }
    Item {
        width: 1
        height: 10
        visible: note.visible
    }
    NoteEditor {
        id: note
        width: parent.width
        leastHeight: 84
        visible: sheet.screen.includeNote
        name: includeNote.text
        text: sheet.screen.note
        onTextChanged: {
            if (activeFocus)
                sheet.screen.note = text;
        }
    }
    Item {
        width: 1
        height: 8
        visible: note.visible
    }
    PlainText {
        x: 2
        width: parent.width - 2
        height: 17
        visible: note.visible
        text: Wording.words("For this email only. Your saved note stays the same.")
        color: Theme.ink3
        font: Theme.small
    }
    Item {
        width: 1
        height: 14
        visible: failure.visible
    }
    PlainText {
        id: failure
        width: parent.width
        visible: text.length > 0
        text: sheet.screen.error
        color: Theme.rust
        font: Theme.smallMedium
        wrapMode: Text.Wrap
        lineHeight: 17
        lineHeightMode: Text.FixedHeight
        Accessible.role: Accessible.AlertMessage
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// A link typed by hand.
Sheet {
    id: sheet

    required property AddForm screen

    shown: screen.isShown
    title: heading.text
    first: address
    onCancelled: screen.cancel()

    Keys.onReturnPressed: screen.save()
    Keys.onEnterPressed: screen.save()
    Shortcut {
        enabled: sheet.activeFocus
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: sheet.screen.save()
    }

    buttons: [
        SecondaryButton {
            text: Wording.words("Cancel")
            onClicked: sheet.screen.cancel()
        },
        PrimaryButton {
            text: Wording.words("Save link")
            enabled: !sheet.screen.saving
            onClicked: sheet.screen.save()
        }
    ]

    PlainText {
        id: heading
        width: parent.width
        height: 30
        text: Wording.words("A good find.")
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
        text: Wording.words("Give that link a little home.")
        color: Theme.ink2
    }
    Item {
        width: 1
        height: 19
    }
    SectionLabel {
        id: addressLabel
        text: Wording.words("WEB ADDRESS")
    }
    Item {
        width: 1
        height: 7
    }
    Field {
        id: address

        width: parent.width
        rightPadding: paste.width + 14
        text: sheet.screen.url
        hint: Wording.words("https://")
        inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoAutoUppercase
        Accessible.name: addressLabel.text
        Accessible.description: hint
        onTextEdited: sheet.screen.url = text

        SecondaryButton {
            id: paste
            anchors.right: parent.right
            anchors.rightMargin: 5
            y: 5
            small: true
            text: Wording.words("Paste URL")
            onClicked: {
                sheet.screen.pasteURL();
                address.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }
    Item {
        width: 1
        height: 16
    }
    SectionLabel {
        id: titleLabel
        text: Wording.words("TITLE (OPTIONAL)")
    }
    Item {
        width: 1
        height: 7
    }
    Field {
        width: parent.width
        text: sheet.screen.title
        hint: Wording.words("Something worth keeping")
        Accessible.name: titleLabel.text
        Accessible.description: hint
        onTextEdited: sheet.screen.title = text
    }
    Item {
        width: 1
        height: 16
    }
    SectionLabel {
        id: noteLabel
        text: Wording.words("NOTE")
    }
    Item {
        width: 1
        height: 7
    }
    NoteEditor {
        width: parent.width
        name: noteLabel.text
        text: sheet.screen.note
        onTextChanged: {
            if (activeFocus)
                sheet.screen.note = text;
        }
    }
    Item {
        width: 1
        height: 16
    }
    SectionLabel {
        id: tagsLabel
        text: Wording.words("TAGS")
    }
    Item {
        width: 1
        height: 7
    }
    TagEditor {
        width: parent.width
        form: sheet.screen
        name: tagsLabel.text
    }
}

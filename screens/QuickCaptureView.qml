pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// A captured link gets its title, its note and its tags.
Rectangle {
    id: view

    required property QuickCaptureForm form

    width: 428
    height: column.height + 40
    color: Theme.paper
    Accessible.role: Accessible.Form
    Accessible.name: heading.text

    function enterTags() {
        tagEditor.enterInput();
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: view.form.save()
    }
    Shortcut {
        sequences: ["Esc"]
        onActivated: view.form.cancel()
    }

    Column {
        id: column

        x: 24
        y: 20
        width: parent.width - 48

        PlainText {
            id: heading
            width: parent.width
            height: 28
            text: Wording.words("Save with a note")
            font: Theme.smallHeading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 14
        }
        Row {
            width: parent.width
            spacing: 12

            DomainTile {
                domain: view.form.domain
                address: view.form.url
                iconHint: view.form.iconHint
            }
            Field {
                y: 2
                width: parent.width - 54
                text: view.form.title
                hint: Wording.words("Link title")
                onTextEdited: view.form.title = text
                Component.onCompleted: cursorPosition = 0
            }
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
            id: note
            width: parent.width
            leastHeight: 84
            focus: true
            name: noteLabel.text
            text: view.form.note
            onTextChanged: view.form.note = text
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
            id: tagEditor
            width: parent.width
            form: view.form
            name: tagsLabel.text
        }
        Item {
            width: 1
            height: 20
        }
        Item {
            width: parent.width
            height: 34

            PlainText {
                anchors.left: parent.left
                anchors.right: buttons.left
                anchors.rightMargin: 8
                height: parent.height
                text: Wording.words("⌘↵ to save · Esc to cancel")
                color: Theme.ink3
                font: Theme.small
            }
            Row {
                id: buttons
                anchors.right: parent.right
                spacing: 8

                SecondaryButton {
                    text: Wording.words("Cancel")
                    onClicked: view.form.cancel()
                }
                PrimaryButton {
                    text: Wording.words("Save")
                    enabled: !view.form.saving
                    onClicked: view.form.save()
                }
            }
        }
    }
}

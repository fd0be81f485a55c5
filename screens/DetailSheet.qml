pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// A stored link: its title, its note and its tags, and what else can be done with it.
FocusScope {
    id: view

    required property DetailForm screen
    /// Something stands above the sheet and has the keyboard.
    property bool covered: false

    anchors.fill: parent

    function openMenu() {
        menu.open();
    }
    function closeMenu() {
        menu.close();
    }

    Sheet {
        id: sheet

        cardWidth: 500
        focus: !confirm.shown
        covered: view.covered || confirm.shown
        shown: view.screen.isShown
        title: domain.text
        first: titleField
        onCancelled: view.screen.cancel()

        Keys.onReturnPressed: view.screen.save()
        Keys.onEnterPressed: view.screen.save()
        Shortcut {
            enabled: sheet.activeFocus
            sequences: ["Ctrl+Return", "Ctrl+Enter"]
            onActivated: view.screen.save()
        }

        buttons: [
            SecondaryButton {
                text: Wording.words("Cancel")
                onClicked: view.screen.cancel()
            },
            PrimaryButton {
                text: Wording.words("Save changes")
                enabled: !view.screen.saving
                onClicked: view.screen.save()
            }
        ]

        Item {
            width: parent.width
            height: 42

            DomainTile {
                domain: view.screen.domain
                address: view.screen.url
                iconHint: view.screen.iconHint
            }
            PlainText {
                id: domain
                x: 56
                y: 2
                width: open.x - x - 12
                height: 20
                text: view.screen.domain
                font: Theme.rowTitle
                Accessible.role: Accessible.Heading
            }
            PlainText {
                x: 56
                y: 22
                width: open.x - x - 12
                height: 16
                text: view.screen.savedFrom
                color: Theme.ink3
                font: Theme.small
            }
            SecondaryButton {
                id: open
                anchors.right: more.left
                anchors.rightMargin: 8
                y: 7
                small: true
                text: Wording.words("Open link")
                onClicked: view.screen.open()
            }
            IconButton {
                id: more
                anchors.right: parent.right
                y: 7
                drawing: "actions/16/overflow-menu"
                drawingColor: Theme.ink
                held: menu.visible
                text: Wording.words("More")
                Accessible.role: Accessible.ButtonMenu
                onClicked: view.openMenu()
                Keys.onDownPressed: view.openMenu()

                PopupMenu {
                    id: menu
                    x: parent.width - width
                    y: parent.height + 4
                    least: 198
                    // The first choice is under the keyboard at once.
                    onAboutToShow: menu.currentIndex = 0

                    MenuEntry {
                        drawing: "actions/16/edit-copy"
                        text: Wording.words("Copy link")
                        onTriggered: view.screen.copyLink()
                    }
                    MenuEntry {
                        drawing: view.screen.isArchived ? "actions/16/edit-undo" : "places/16/folder-download"
                        text: view.screen.isArchived ? Wording.words("Restore to library")
                                                     : Wording.words("Archive link")
                        onTriggered: view.screen.toggleArchived()
                    }
                    MenuSeparator {}
                    MenuEntry {
                        drawing: "actions/16/edit-delete"
                        destructive: true
                        text: Wording.words("Delete permanently…")
                        onTriggered: view.screen.askDelete()
                    }
                }
            }
        }
        Item {
            width: 1
            height: 20
        }
        PlainText {
            id: titleLabel
            width: parent.width
            height: 14
            text: Wording.words("Title")
            color: Theme.ink2
            font: Theme.smallMedium
        }
        Item {
            width: 1
            height: 7
        }
        Field {
            id: titleField
            width: parent.width
            text: view.screen.title
            Accessible.name: titleLabel.text
            onTextEdited: view.screen.title = text
        }
        Item {
            width: 1
            height: 16
        }
        SectionLabel {
            id: noteLabel
            text: Wording.words("A NOTE TO YOUR FUTURE SELF")
        }
        Item {
            width: 1
            height: 7
        }
        NoteEditor {
            id: note
            width: parent.width
            leastHeight: 96
            greatestHeight: 136
            name: noteLabel.text
            text: view.screen.note
            onTextChanged: {
                if (activeFocus)
                    view.screen.note = text;
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
            form: view.screen
            name: tagsLabel.text
        }
    }
    Alert {
        id: confirm

        cardWidth: 380
        focus: shown
        covered: view.covered
        shown: view.screen.confirmingDelete
        title: Wording.words("Delete this link?")
        message: Wording.words("This permanently removes the link and its note from Brinmoor.")
        confirmText: Wording.words("Delete")
        destructive: true
        onConfirmed: view.screen.confirmDelete()
        onCancelled: view.screen.cancelDelete()
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What lies behind a row that is pushed aside: the buttons of the uncovered side.
Item {
    id: buttons

    required property SwipeEvents row
    required property string linkId
    required property bool isArchived
    required property LinkCommands commands

    readonly property bool atLeft: row.offset > 0

    x: atLeft ? 0 : row.width - width
    width: Math.abs(row.offset)
    height: row.height
    clip: true

    Row {
        x: (parent.width - width) / 2
        height: parent.height
        spacing: 8
        visible: buttons.atLeft

        SwipeActionButton {
            height: parent.height
            title: Wording.words("Copy")
            drawing: "actions/16/link"
            expansion: buttons.row.copyIntent
            pending: buttons.row.copyPending
            onClicked: buttons.row.copyWanted()
        }
        SwipeActionButton {
            height: parent.height
            title: Wording.words("Email")
            drawing: "actions/16/mail-message"
            onClicked: buttons.commands.share(buttons.linkId)
        }
    }
    Row {
        x: (parent.width - width) / 2
        height: parent.height
        spacing: 8
        visible: !buttons.atLeft

        SwipeActionButton {
            visible: !buttons.isArchived
            height: parent.height
            title: Wording.words("Delete")
            drawing: "actions/16/edit-delete"
            tone: Theme.muted
            onClicked: {
                buttons.row.close();
                buttons.commands.remove(buttons.linkId);
            }
        }
        SwipeActionButton {
            height: parent.height
            title: buttons.isArchived ? Wording.words("Restore") : Wording.words("Archive")
            drawing: buttons.isArchived ? "actions/16/edit-undo" : "places/16/folder-download"
            expansion: buttons.row.archiveIntent
            pending: buttons.row.archivePending
            onClicked: buttons.row.archiveWanted()
        }
    }
}

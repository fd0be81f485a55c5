pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What stands above the links: the name, the search, what narrows the list, and what is to be said.
Column {
    id: header

    required property LibraryScreen screen

    readonly property alias searchField: searchField
    readonly property LibrarySearch search: screen.search

    Item {
        width: parent.width
        height: 64

        PlainText {
            id: wordmark
            y: 20
            height: 34
            text: "brinmoor"
            font: Theme.wordmark
            Accessible.role: Accessible.Heading
        }
        PlainText {
            anchors.left: wordmark.right
            anchors.leftMargin: 10
            anchors.baseline: wordmark.baseline
            text: Wording.words("On your Mac")
            color: Theme.ink3
            font: Theme.small
        }
    }
    SearchField {
        id: searchField
        // Its suggestions hang over what follows.
        z: 1
        width: parent.width
        search: header.search
    }
    Item {
        width: 1
        height: 10
    }
    FilterRow {
        width: parent.width
        search: header.search
    }
    RefinementChips {
        width: parent.width
        visible: header.search.refined
        topPadding: 10
        search: header.search
    }
    Item {
        width: 1
        height: banners.visible ? 12 : 0
    }
    Column {
        id: banners

        width: parent.width
        spacing: 8
        visible: header.screen.offersTour || header.screen.showsUsageNotice

        Banner {
            width: parent.width
            visible: header.screen.offersTour
            title: Wording.words("Finish setting up Brinmoor")
            text: Wording.words("Take the 45-second tour to learn the shortcuts and gestures.")
            drawing: "actions/22/tools-wizard"
            actionText: Wording.words("Continue")
            onFollowed: header.screen.continueTour()
        }
        Banner {
            width: parent.width
            visible: header.screen.showsUsageNotice
            text: Wording.words("New: anonymous usage counts help improve Brinmoor. Your links and notes stay on this Mac.")
            dismissText: Wording.words("Dismiss usage notice")
            onDismissed: header.screen.dismissUsageNotice()
        }
    }
    Item {
        width: parent.width
        height: 40
        visible: header.search.filter === "Archive" && !header.screen.archiveEmpty

        PlainText {
            y: 12
            width: emptyButton.x - 12
            height: 28
            text: Wording.words("Kept here until you’re ready to let go.")
            color: Theme.ink2
        }
        BaseButton {
            id: emptyButton
            anchors.right: parent.right
            y: 12
            small: true
            fill: Theme.rustTint
            labelColor: Theme.rust
            ringColor: Theme.rust
            text: Wording.words("Empty archive…")
            Accessible.description: tip.text
            onClicked: header.screen.askToEmptyArchive()

            HelpTip {
                id: tip
                visible: emptyButton.hovered
                text: Wording.words("Permanently delete all archived links")
            }
        }
    }
}

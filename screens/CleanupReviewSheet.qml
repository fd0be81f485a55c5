pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The tabs of the chosen websites, to be looked through before they are closed.
Sheet {
    id: sheet

    required property CleanupReviewList screen

    cardWidth: 508
    shown: screen.isShown
    title: heading.text
    first: list
    onCancelled: screen.cancel()

    Keys.onReturnPressed: screen.confirm()
    Keys.onEnterPressed: screen.confirm()
    Shortcut {
        enabled: sheet.activeFocus
        sequences: ["Ctrl+A"]
        onActivated: sheet.screen.selectAll()
    }

    buttons: [
        SecondaryButton {
            text: Wording.words("Cancel")
            onClicked: sheet.screen.cancel()
        },
        PrimaryButton {
            text: sheet.screen.confirmText
            enabled: sheet.screen.selectedCount > 0
            onClicked: sheet.screen.confirm()
        }
    ]

    PlainText {
        id: heading
        width: parent.width
        height: 30
        text: Wording.words("Review tabs to close")
        font: Theme.heading
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: 3
    }
    PlainText {
        width: parent.width
        text: Wording.words("Cleanup only includes websites you selected. Uncheck anything you want to keep open.")
        color: Theme.ink2
        wrapMode: Text.Wrap
        lineHeight: 20
        lineHeightMode: Text.FixedHeight
    }
    Item {
        width: 1
        height: 14
    }
    Item {
        width: parent.width
        height: 28

        Row {
            x: -9

            TextButton {
                small: true
                text: Wording.words("Select all")
                onClicked: sheet.screen.selectAll()
            }
            TextButton {
                small: true
                text: Wording.words("Select none")
                onClicked: sheet.screen.selectNone()
            }
        }
        PlainText {
            anchors.right: parent.right
            height: parent.height
            text: sheet.screen.counterText
            color: Theme.ink3
            font: Theme.small
        }
    }
    Item {
        width: 1
        height: 8
    }
    Rectangle {
        width: parent.width
        height: Math.min(list.count * 46 + sheet.screen.siteCount * 28, 6 * 46) + 10
        radius: 14
        color: Theme.surface
        border.width: 1
        border.color: Theme.line

        ListView {
            id: list

            property bool byKeyboard: false

            anchors.fill: parent
            anchors.margins: 5
            clip: contentHeight > height
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            model: sheet.screen
            delegate: CleanupReviewRow {
                width: ListView.view.width
                keyboardHere: list.activeFocus && ListView.isCurrentItem && list.byKeyboard
                onToggled: {
                    list.currentIndex = index;
                    sheet.screen.toggle(index);
                }
            }
            Accessible.role: Accessible.List
            Accessible.name: heading.text

            Keys.onPressed: list.byKeyboard = true
            Keys.onSpacePressed: sheet.screen.toggle(list.currentIndex)

            T.ScrollBar.vertical: ThinScrollBar {}
        }
    }
}

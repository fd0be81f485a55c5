import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The links by day, newest first.
FocusScope {
    id: view

    required property LibraryScreen screen

    Item {
        id: header

        x: Theme.columnLeft(view.width)
        y: 20
        width: Theme.columnWidth(view.width)
        height: 34

        PlainText {
            id: wordmark
            height: parent.height
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
    ListView {
        id: list

        anchors.top: header.bottom
        anchors.topMargin: 6
        anchors.bottom: footer.top
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        spacing: 1
        cacheBuffer: 200
        bottomMargin: 12
        currentIndex: -1
        model: view.screen.links
        section.property: "day"
        section.delegate: DayHeading {}
        delegate: LinkRow {}
        Accessible.role: Accessible.List
        Accessible.name: Wording.words("Library")

        T.ScrollBar.vertical: ThinScrollBar {}
    }
    EmptyState {
        visible: view.screen.links.empty
        anchors.fill: list
        keys: view.screen.shortcutLabel
    }
    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: 42

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.line
        }
        Row {
            x: Theme.margin(view.width)
            height: parent.height
            spacing: 7

            IconShape {
                y: Math.round((parent.height - height) / 2)
                width: 14
                height: 14
                name: "actions/16/object-locked"
                color: Theme.ink3
            }
            PlainText {
                height: parent.height
                text: Wording.words("Only on your Mac")
                color: Theme.ink3
                font: Theme.small
            }
        }
        Row {
            anchors.right: parent.right
            anchors.rightMargin: Theme.margin(view.width)
            height: parent.height
            spacing: 8

            Keycap {
                y: Math.round((parent.height - height) / 2)
                keys: view.screen.shortcutLabel
            }
            PlainText {
                height: parent.height
                text: view.screen.closesAfterSave ? Wording.words("to save & close a tab")
                                                  : Wording.words("to save a tab")
                color: Theme.ink3
                font: Theme.small
            }
        }
    }
}

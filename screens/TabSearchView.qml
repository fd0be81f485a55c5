pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import QtQuick.Templates as T
import Brinmoor

// Every open tab of every browser, found by typing.
Item {
    id: view

    required property TabSearchScreen screen
    /// Room around the card for its shadow; 0 where the desktop can't show through a window.
    required property int shadowSpread

    width: 620 + 2 * shadowSpread
    height: 496 + 2 * shadowSpread
    Accessible.role: Accessible.Dialog
    Accessible.name: Wording.words("Search open tabs")

    /// The panel is opened anew.
    function begin() {
        input.forceActiveFocus(Qt.PopupFocusReason);
        input.selectAll();
    }

    Shortcut {
        sequences: ["Esc"]
        onActivated: view.screen.cancel()
    }
    Instantiator {
        model: 9
        delegate: Shortcut {
            required property int index

            sequences: ["Ctrl+" + (index + 1)]
            onActivated: view.screen.activate(index)
        }
    }
    Keys.onUpPressed: view.screen.move(-1)
    Keys.onDownPressed: view.screen.move(1)
    Keys.onReturnPressed: view.screen.activateSelected()
    Keys.onEnterPressed: view.screen.activateSelected()

    ShadowShape {
        visible: view.shadowSpread > 0
        anchors.fill: card
        anchors.leftMargin: -blur
        anchors.rightMargin: -blur
        anchors.topMargin: 18 - blur
        anchors.bottomMargin: -18 - blur
        radius: 20
        blur: 56
        color: Theme.shadow3
    }
    Rectangle {
        id: card

        x: view.shadowSpread
        y: view.shadowSpread
        width: 620
        height: 496
        radius: 20
        color: Theme.raised
        border.width: 1
        border.color: Theme.edge

        // The card is moved by whatever isn't for something else.
        DragHandler {
            target: null
            onActiveChanged: {
                if (active)
                    view.Window.window.startSystemMove();
            }
        }

        IconShape {
            x: 20
            y: 18
            width: 22
            height: 22
            name: "actions/22/edit-find"
            color: Theme.ink3
        }
        Field {
            id: input

            x: 54
            y: 9
            width: 508
            height: 40
            leftPadding: 0
            rightPadding: 0
            framed: false
            focus: true
            font: Theme.sans(17, Font.Normal)
            text: view.screen.query
            hint: Wording.words("Find an open tab…")
            onTextEdited: view.screen.query = text
        }
        IconButton {
            id: refresh

            x: 575
            y: 15
            focusPolicy: Qt.TabFocus
            enabled: !view.screen.loading
            opacity: 1
            drawing: "actions/16/view-refresh"
            drawingColor: view.screen.loading ? "transparent"
                                              : hovered || down ? Theme.ink : Theme.ink3
            text: Wording.words("Refresh open tabs")
            onClicked: view.screen.refresh()

            Spinner {
                anchors.centerIn: parent
                visible: view.screen.loading
            }
            HelpTip {
                visible: refresh.hovered
                text: refresh.text
            }
        }
        Rectangle {
            x: 1
            y: 58
            width: parent.width - 2
            height: 1
            color: Theme.separator
        }
        PlainText {
            x: 21
            y: 67
            height: 30
            text: view.screen.heading
            color: Theme.ink3
            font: Theme.sectionLabel
            Accessible.role: Accessible.Heading
        }
        PlainText {
            anchors.right: parent.right
            anchors.rightMargin: 21
            y: 67
            height: 30
            text: view.screen.countText
            color: Theme.ink3
            font: Theme.small
        }
        ListView {
            id: list

            x: 11
            y: 97
            width: 598
            height: message.visible ? 326 : 358
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            model: view.screen
            currentIndex: view.screen.selectedIndex
            delegate: TabSearchRow {
                width: ListView.view.width
                selected: index === view.screen.selectedIndex
                onActivated: view.screen.activate(index)
                onSaved: view.screen.saveTab(index)
            }
            Accessible.role: Accessible.List
            Accessible.name: view.screen.heading

            function showSelected() {
                positionViewAtIndex(view.screen.selectedIndex, ListView.Contain);
            }
            Connections {
                target: view.screen
                function onSelectedIndexChanged() {
                    list.showSelected();
                }
                function onModelReset() {
                    list.currentIndex = Qt.binding(() => view.screen.selectedIndex);
                    list.showSelected();
                }
            }

            T.ScrollBar.vertical: ThinScrollBar {}
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            y: 262
            height: 20
            visible: view.screen.loading && view.screen.isEmpty
            text: Wording.words("Reading your open tabs…")
            color: Theme.ink2
        }
        Column {
            y: 245
            width: parent.width
            spacing: 4
            visible: !view.screen.loading && view.screen.isEmpty

            PlainText {
                width: parent.width
                height: 26
                horizontalAlignment: Text.AlignHCenter
                text: Wording.words("No matching tabs")
                font: Theme.serif(20)
            }
            PlainText {
                width: parent.width
                height: 22
                horizontalAlignment: Text.AlignHCenter
                text: Wording.words("Search by title, website, or browser.")
                color: Theme.ink2
            }
        }
        Item {
            id: message

            x: 21
            y: 423
            width: parent.width - 42
            height: 28
            visible: view.screen.message.length > 0

            IconShape {
                y: 6
                width: 16
                height: 16
                visible: !view.screen.messageIsFailure
                name: "actions/16/checkmark"
                color: Theme.sage
            }
            PlainText {
                width: 16
                height: parent.height
                visible: view.screen.messageIsFailure
                horizontalAlignment: Text.AlignHCenter
                text: "!"
                color: Theme.rust
                font: Theme.sans(14, Font.Bold)
                Accessible.ignored: true
            }
            PlainText {
                x: 22
                width: parent.width - 22
                height: parent.height
                text: view.screen.message
                color: Theme.ink2
                font: Theme.small
                Accessible.role: Accessible.AlertMessage
            }
        }
        Rectangle {
            x: 1
            y: 455
            width: parent.width - 2
            height: 1
            color: Theme.separator
        }
        PlainText {
            x: 21
            y: 456
            height: 39
            text: Wording.words("↑ ↓ to select   ↵ to switch")
            color: Theme.ink3
            font: Theme.small
        }
        PlainText {
            anchors.right: parent.right
            anchors.rightMargin: 21
            y: 456
            height: 39
            text: Wording.words("⌘1–9 to jump directly")
            color: Theme.ink3
            font: Theme.small
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The tabs of a window, to choose from.
Rectangle {
    id: view

    required property TabSelectionList tabs

    width: 488
    height: column.height + 44
    color: Theme.paper
    Accessible.role: Accessible.Form
    Accessible.name: heading.text

    // By keys, so that a button with the keyboard is pressed instead.
    Keys.onReturnPressed: view.tabs.save()
    Keys.onEnterPressed: view.tabs.save()
    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: view.tabs.save()
    }
    Shortcut {
        sequences: ["Esc"]
        onActivated: view.tabs.cancel()
    }
    Shortcut {
        sequences: ["Ctrl+A"]
        onActivated: view.tabs.selectAll()
    }

    Column {
        id: column

        x: 24
        y: 22
        width: parent.width - 48

        PlainText {
            id: heading
            width: parent.width
            height: 30
            text: Wording.words("Choose what stays.")
            font: Theme.heading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 2
        }
        PlainText {
            width: parent.width
            height: 20
            text: Wording.words("Select the tabs you want to save. Nothing closes in your browser.")
            color: Theme.ink2
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
                    onClicked: view.tabs.selectAll()
                }
                TextButton {
                    small: true
                    text: Wording.words("Select none")
                    onClicked: view.tabs.selectNone()
                }
            }
            PlainText {
                anchors.right: parent.right
                height: parent.height
                text: view.tabs.counterText
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
            height: Math.min(list.count, 6) * 48 + 10
            radius: 14
            color: Theme.surface
            border.width: 1
            border.color: Theme.line

            ListView {
                id: list

                anchors.fill: parent
                anchors.margins: 5
                clip: contentHeight > height
                focus: true
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                highlightMoveDuration: 0
                model: view.tabs
                delegate: TabSelectionRow {
                    width: ListView.view.width
                    keyboardHere: list.activeFocus && ListView.isCurrentItem && list.byKeyboard
                    onToggled: {
                        list.currentIndex = index;
                        view.tabs.toggle(index);
                    }
                }
                Accessible.role: Accessible.List
                Accessible.name: heading.text

                property bool byKeyboard: false
                Keys.onPressed: list.byKeyboard = true
                Keys.onSpacePressed: view.tabs.toggle(list.currentIndex)

                T.ScrollBar.vertical: ThinScrollBar {}
            }
        }
        Item {
            width: 1
            height: 18
        }
        Row {
            anchors.right: parent.right
            spacing: 8

            SecondaryButton {
                text: Wording.words("Cancel")
                onClicked: view.tabs.cancel()
            }
            PrimaryButton {
                text: view.tabs.saveText
                enabled: view.tabs.selectedCount > 0
                onClicked: view.tabs.save()
            }
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One browser: whether it lets the program in, and what is to be done.
Item {
    id: row

    required property int index
    required property string name
    required property string browser
    required property int mark
    required property string stateWords
    required property string note
    required property bool hasSteps
    required property bool expanded
    required property list<string> steps
    required property list<string> copyables
    required property BrowserAccess access

    readonly property bool connectable: stateWords.length > 0

    width: parent ? parent.width : 0
    height: head.height + (row.hasSteps && row.expanded ? list.height + 16 : 0)

    Rectangle {
        visible: row.y > 0
        width: parent.width
        height: 1
        color: Theme.separator
    }
    Item {
        id: head

        width: parent.width
        height: Math.max(58, words.height + 24)

        DomainTile {
            x: 16
            anchors.verticalCenter: parent.verticalCenter
            small: true
            domain: row.browser
            opacity: row.connectable ? 1 : 0.7
        }
        Column {
            id: words

            x: 62
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x - 16 - (right.width > 0 ? right.width + 14 : 0)

            PlainText {
                width: parent.width
                height: 20
                text: row.name
                color: row.connectable ? Theme.ink : Theme.ink3
                font: Theme.label
            }
            PlainText {
                visible: text.length > 0
                width: parent.width
                text: row.note
                color: Theme.ink3
                font: Theme.small
                wrapMode: Text.Wrap
                lineHeight: 17
                lineHeightMode: Text.FixedHeight
            }
        }
        Row {
            id: right

            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 14

            Row {
                height: 28
                spacing: 7

                Spinner {
                    visible: row.mark === BrowserAccess.Spinner
                    width: 12
                    height: 12
                    y: 8
                }
                Rectangle {
                    visible: row.mark === BrowserAccess.Filled || row.mark === BrowserAccess.Failing
                    y: 10
                    width: 8
                    height: 8
                    radius: 4
                    color: row.mark === BrowserAccess.Filled ? Theme.sage : Theme.rust
                }
                Rectangle {
                    visible: row.mark === BrowserAccess.Ring
                    y: 10
                    width: 8
                    height: 8
                    radius: 4
                    color: "transparent"
                    border.width: 2
                    border.color: Theme.muted
                }
                PlainText {
                    height: parent.height
                    text: row.stateWords
                    color: row.mark === BrowserAccess.Filled
                           ? Theme.sage
                           : row.mark === BrowserAccess.Failing ? Theme.ink2 : Theme.ink3
                    font: Theme.smallMedium
                }
            }
            SecondaryButton {
                visible: row.hasSteps
                small: true
                text: row.expanded ? Wording.words("Hide steps") : Wording.words("Show steps")
                Accessible.description: row.name
                onClicked: row.access.toggleSteps(row.index)
            }
        }
    }
    Column {
        id: list

        visible: row.hasSteps && row.expanded
        x: 62
        y: head.height
        width: parent.width - x - 16
        spacing: 10

        Repeater {
            model: row.steps

            ConnectionStep {
                required property string modelData
                required property int index

                width: list.width
                number: index + 1
                words: modelData
                copyable: row.copyables[index] ?? ""
                onCopied: row.access.copy(copyable)
            }
        }
    }
}

import QtQuick
import Brinmoor

// One setting: its name and what it means at the left, its controls at the right.
Item {
    id: row

    property string title
    property string note
    property string error
    property color titleColor: Theme.ink
    property font titleFont: Theme.label
    property int leastHeight: 52
    property int space: 13
    default property alias controls: right.data

    width: parent ? parent.width : 0
    height: Math.max(leastHeight, words.height + 2 * space)

    Rectangle {
        visible: row.y > 0
        width: parent.width
        height: 1
        color: Theme.separator
    }
    Column {
        id: words

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1
        width: parent.width - 32 - (right.width > 0 ? right.width + 14 : 0)

        PlainText {
            visible: text.length > 0
            width: parent.width
            text: row.title
            color: row.titleColor
            font: row.titleFont
            wrapMode: Text.Wrap
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
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
        PlainText {
            visible: text.length > 0
            width: parent.width
            height: 16
            text: row.error
            color: Theme.rust
            font: Theme.smallMedium
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }
    Row {
        id: right

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 14
    }
}

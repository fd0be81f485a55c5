pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One link of the list.
Item {
    id: row

    required property string title
    required property string domain
    required property var tags
    required property string note
    required property bool isFavorite

    readonly property bool keyboardHere: ListView.isCurrentItem && ListView.view.activeFocus
    readonly property real pageWidth: ListView.view ? ListView.view.width : 0

    x: Theme.columnLeft(pageWidth) - 12
    width: Theme.columnWidth(pageWidth) + 24
    height: Math.max(42, texts.height) + 20
    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.description: domain

    HoverHandler {
        id: pointer
    }
    Rectangle {
        anchors.fill: parent
        radius: 14
        color: pointer.hovered || row.keyboardHere ? Theme.surface : Qt.alpha(Theme.surface, 0)
        border.width: row.keyboardHere ? 2 : 1
        border.color: row.keyboardHere ? Theme.sage
                                       : pointer.hovered ? Theme.line : Qt.alpha(Theme.line, 0)
        Behavior on color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }
    }
    DomainTile {
        x: 12
        y: 10
        domain: row.domain
    }
    Column {
        id: texts

        x: 68
        y: 10
        width: row.width - 68 - 12 - 60 - 8
        topPadding: 1

        PlainText {
            width: parent.width
            height: 20
            text: row.title
            font: Theme.rowTitle
            Accessible.ignored: true
        }
        Flow {
            width: parent.width
            spacing: 4

            PlainText {
                width: Math.min(Math.ceil(implicitWidth), parent.width)
                height: 20
                rightPadding: 5
                text: row.domain
                color: Theme.ink3
                font: Theme.small
                Accessible.ignored: true
            }
            Repeater {
                model: row.tags
                delegate: RowTag {
                    required property string modelData

                    tag: modelData
                    greatestWidth: texts.width
                }
            }
        }
        PlainText {
            width: Math.min(parent.width, 600)
            visible: row.note.length > 0
            topPadding: 3
            text: row.note
            color: Theme.ink2
            wrapMode: Text.Wrap
            maximumLineCount: 2
            lineHeight: 19
            lineHeightMode: Text.FixedHeight
        }
    }
    IconShape {
        visible: row.isFavorite
        anchors.right: parent.right
        anchors.rightMargin: 18
        y: 16
        width: 16
        height: 16
        name: "emblems/16/rating"
        color: Theme.sage
    }
}

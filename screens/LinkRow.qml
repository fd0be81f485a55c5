pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One link: what it is called, where it is, what was noted about it.
Rectangle {
    id: row

    required property string linkId
    required property string title
    required property string domain
    required property string address
    required property string iconHint
    required property list<string> tags
    required property string note
    required property bool isFavorite
    required property bool isArchived
    required property LibraryScreen screen
    /// The keyboard is in this row, and came there by keys.
    required property bool current
    required property bool ringed
    required property bool held
    /// Pushed aside, the row is a card that hides what lies behind it.
    required property bool pushed

    readonly property bool hovered: pointer.hovered
    readonly property bool active: hovered || current || held

    /// A row that goes on to another link keeps the tags that it has made, shown or not: to make them
    /// takes longer than all the rest of it.
    property int mostTags: tags.length
    onTagsChanged: mostTags = Math.max(mostTags, tags.length)

    /// Takes its height at once, not only before the next frame.
    function layOut() {
        tagLine.forceLayout();
        texts.forceLayout();
    }

    implicitHeight: Math.max(42, texts.height) + 20
    radius: 14
    color: active || pushed ? Theme.surface : Qt.alpha(Theme.surface, 0)
    border.width: ringed ? 2 : 1
    border.color: ringed ? Theme.sage : active || pushed ? Theme.line : Qt.alpha(Theme.line, 0)
    Behavior on color {
        enabled: !row.pushed
        ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
    }

    HoverHandler {
        id: pointer
    }
    DomainTile {
        x: 12
        y: 10
        domain: row.domain
        address: row.address
        iconHint: row.iconHint
    }
    // Before the tags in the order of the keyboard.
    Row {
        anchors.right: parent.right
        anchors.rightMargin: 11
        y: 9
        spacing: 2

        Repeater {
            model: row.active ? 1 : 0
            delegate: RowButton {
                reachable: row.current
                drawing: "actions/16/document-edit"
                text: Wording.words("Edit note and tags")
                onClicked: row.screen.commands.edit(row.linkId)
            }
        }
        Repeater {
            model: row.active || row.isFavorite ? 1 : 0
            delegate: RowButton {
                reachable: row.current
                drawing: row.isFavorite ? "emblems/16/rating" : "emblems/16/rating-unrated"
                drawingColor: row.isFavorite ? Theme.sage : hovered || down ? Theme.ink : Theme.ink3
                text: row.isFavorite ? Wording.words("Remove Favorite")
                                     : Wording.words("Favorite Link")
                onClicked: row.screen.commands.toggleFavorite(row.linkId)
            }
        }
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
            id: tagLine

            width: parent.width
            spacing: 4

            PlainText {
                width: Math.min(Math.ceil(implicitWidth), texts.width)
                height: 20
                rightPadding: 5
                text: row.domain
                color: Theme.ink3
                font: Theme.small
                Accessible.ignored: true
            }
            Repeater {
                model: row.isArchived ? 1 : 0
                delegate: ArchivedMark {}
            }
            Repeater {
                model: row.mostTags
                delegate: RowTag {
                    required property int index

                    visible: index < row.tags.length
                    tag: row.tags[index] ?? ""
                    greatestWidth: texts.width
                    focusPolicy: row.current ? Qt.StrongFocus : Qt.NoFocus
                    onClicked: row.screen.search.selectTag(tag)
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
            Accessible.ignored: true
        }
    }
}

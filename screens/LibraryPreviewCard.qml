pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What the library looks like, with two invented links.
Column {
    id: card

    property bool low: false

    spacing: card.low ? 8 : 18

    Item {
        width: parent.width
        height: card.low ? 42 : 49

        Rectangle {
            width: parent.width
            height: 42
            radius: 12
            color: Theme.surface
            border.width: 1
            border.color: Theme.field

            IconShape {
                x: 14
                y: 13
                width: 16
                height: 16
                name: "actions/16/edit-find"
                color: Theme.ink2
            }
            PlainText {
                x: 40
                width: parent.width - 52
                height: parent.height
                text: Wording.words("Search your library")
                color: Theme.ink3
                font: Theme.fieldText
            }
        }
    }
    Repeater {
        model: [{
                title: Wording.words("The details that make a Mac app feel at home"),
                domain: "quietmachines.blog",
                drawing: "actions/16/tools-wizard",
                side: 16
            }, {
                title: Wording.words("A thoughtful article you saved for later"),
                domain: "letterpress.studio",
                drawing: "actions/22/bookmarks",
                side: 22
            }]

        Item {
            id: link

            required property var modelData

            width: card.width
            height: 42

            Bubble {
                x: 4
                width: 42
                height: 42
                drawing: link.modelData.drawing
                drawingSide: link.modelData.side
            }
            PlainText {
                x: 58
                y: 3
                width: parent.width - 58
                height: 20
                text: link.modelData.title
                font: Theme.rowTitle
            }
            PlainText {
                x: 58
                y: 23
                width: parent.width - 58
                height: 16
                text: link.modelData.domain
                color: Theme.ink3
                font: Theme.small
            }
        }
    }
}

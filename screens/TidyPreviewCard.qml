import QtQuick
import Brinmoor

// What a swipe does.
Column {
    id: card

    property bool low: false

    spacing: card.low ? 12 : 22

    Item {
        width: parent.width
        height: 44

        Bubble {
            width: 44
            height: 44
            drawing: "actions/22/hand"
            drawingSide: 22
        }
        PlainText {
            x: 57
            y: 4
            width: parent.width - 57
            height: 20
            text: Wording.words("Swipe left")
            font: Theme.sans(14, Font.DemiBold)
        }
        PlainText {
            x: 57
            y: 24
            width: parent.width - 57
            height: 17
            text: Wording.words("Short swipe reveals both actions")
            color: Theme.ink3
            font: Theme.small
        }
    }
    Row {
        width: parent.width
        spacing: 10

        SwipeMeaning {
            width: (parent.width - 10) / 2
            color: Theme.fill
            drawing: "actions/22/edit-delete"
            drawingColor: Theme.ink2
            title: Wording.words("Delete")
            line: Wording.words("Remove it from your library")
        }
        SwipeMeaning {
            width: (parent.width - 10) / 2
            color: Theme.tint
            drawing: "places/22/folder-download"
            drawingColor: Theme.sage
            title: Wording.words("Archive")
            line: Wording.words("Move it out of the way")
        }
    }
}

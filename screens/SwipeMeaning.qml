import QtQuick
import Brinmoor

Rectangle {
    id: card

    required property string drawing
    required property color drawingColor
    required property string title
    required property string line

    height: 94
    radius: 14

    IconShape {
        x: 14
        y: 15
        width: 22
        height: 22
        name: card.drawing
        color: card.drawingColor
    }
    PlainText {
        x: 14
        y: 45
        width: parent.width - 20
        height: 20
        text: card.title
        font: Theme.button
    }
    PlainText {
        x: 14
        y: 64
        width: parent.width - 20
        height: 17
        text: card.line
        color: Theme.ink2
        font: Theme.small
    }
}

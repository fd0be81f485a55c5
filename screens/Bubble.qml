import QtQuick
import Brinmoor

// A tinted ground for one drawing.
Rectangle {
    id: bubble

    required property string drawing
    property int drawingSide: 16
    property color drawingColor: Theme.sage

    width: 36
    height: 36
    radius: 12
    color: Theme.tint

    IconShape {
        anchors.centerIn: parent
        width: bubble.drawingSide
        height: bubble.drawingSide
        name: bubble.drawing
        color: bubble.drawingColor
    }
}

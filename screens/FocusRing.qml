import QtQuick
import Brinmoor

// The ring around what the keyboard is on: outside the shape by a gap, or directly at its edge.
Rectangle {
    property int shapeRadius: 0
    property int gap: 2

    anchors.fill: parent
    anchors.margins: -gap - border.width
    color: "transparent"
    radius: shapeRadius + gap + border.width
    border.color: Theme.sage
    border.width: 2
}

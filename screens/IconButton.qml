import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A small square button with a drawing; `text` is its name for those who don't see it.
T.Button {
    id: control

    required property string drawing
    property int side: 28
    /// Its menu is open.
    property bool held: false
    property int drawingSide: 16
    property color drawingColor: hovered || down ? Theme.ink : Theme.ink3

    implicitWidth: side
    implicitHeight: side
    padding: 0
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 8
        color: control.down || control.held ? Theme.press : control.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
        Behavior on color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Item {
        IconShape {
            anchors.centerIn: parent
            width: control.drawingSide
            height: control.drawingSide
            name: control.drawing
            color: control.drawingColor
        }
    }
}

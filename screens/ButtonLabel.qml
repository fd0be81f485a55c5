import QtQuick
import Brinmoor

// A drawing and a word on a button.
Item {
    id: label

    required property string drawing
    required property string text
    required property font font
    property color color: Theme.ink
    property color drawingColor: color
    property int inset: 0
    property int gap: 7
    /// A spinner stands for the drawing.
    property bool busy: false

    implicitWidth: row.width
    implicitHeight: 20

    Row {
        id: row

        x: label.inset
        height: parent.height
        spacing: label.gap

        Item {
            width: 16
            height: parent.height

            IconShape {
                visible: !label.busy
                y: Math.round((parent.height - height) / 2)
                width: 16
                height: 16
                name: label.drawing
                color: label.drawingColor
            }
            Spinner {
                visible: label.busy
                x: 1
                y: Math.round((parent.height - height) / 2)
            }
        }
        PlainText {
            height: parent.height
            text: label.text
            color: label.color
            font: label.font
        }
    }
}

import QtQuick
import Brinmoor

// One line of text in the look of the interface. Nothing that was typed or read is ever markup.
Text {
    color: Theme.ink
    font: Theme.body
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
}

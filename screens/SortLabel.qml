import QtQuick
import Brinmoor

// The order in which a list stands, on the button that changes it.
Item {
    id: label

    required property string text

    implicitWidth: 16 + 5 + Math.ceil(words.implicitWidth) + 5 + 12
    implicitHeight: 20

    IconShape {
        y: Math.round((parent.height - height) / 2)
        width: 16
        height: 16
        name: "actions/16/view-sort-ascending"
        color: Theme.ink2
    }
    PlainText {
        id: words
        x: 21
        height: parent.height
        text: label.text
        font: Theme.sans(13, Font.Medium)
    }
    IconShape {
        x: parent.width - 14
        y: Math.round((parent.height - height) / 2)
        width: 16
        height: 16
        name: "actions/16/go-down"
        color: Theme.ink2
    }
}

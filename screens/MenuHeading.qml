import QtQuick
import Brinmoor

// A word above a group of choices.
Item {
    id: heading

    required property string text

    implicitWidth: Math.ceil(label.implicitWidth) + 20
    implicitHeight: 30
    Accessible.role: Accessible.Heading
    Accessible.name: text

    PlainText {
        id: label
        x: 10
        height: parent.height
        text: heading.text
        color: Theme.ink3
        font: Theme.sans(11, Font.DemiBold)
        Accessible.ignored: true
    }
}

import QtQuick
import Brinmoor

// The heading over the links of one day.
Item {
    id: heading

    required property string section

    width: parent ? parent.width : 0
    height: 40

    PlainText {
        x: Theme.columnLeft(heading.width)
        y: 16
        height: 20
        text: heading.section
        color: Theme.ink2
        font: Theme.dayHeading
        Accessible.role: Accessible.Heading
    }
}

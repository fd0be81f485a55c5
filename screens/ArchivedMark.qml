import QtQuick
import Brinmoor

// Says that a link is in the archive.
Item {
    width: mark.width + 5
    height: 20

    Rectangle {
        id: mark

        y: 2
        width: Math.ceil(label.implicitWidth) + 12
        height: 17
        radius: 5
        color: "transparent"
        border.width: 1
        border.color: Theme.field

        PlainText {
            id: label
            anchors.fill: parent
            text: Wording.words("Archived")
            color: Theme.ink2
            font: Theme.tag
            horizontalAlignment: Text.AlignHCenter
        }
    }
}

import QtQuick
import Brinmoor

// The head of a page: the way back, a heading and a line.
Item {
    id: header

    required property string title
    required property string line
    property string backText: Wording.words("Library")

    signal back

    height: 106

    BackButton {
        x: -8
        y: 16
        text: header.backText
        onClicked: header.back()
    }
    PlainText {
        y: 50
        width: parent.width
        height: 34
        text: header.title
        font: Theme.display
        Accessible.role: Accessible.Heading
    }
    PlainText {
        y: 84
        width: parent.width
        height: 20
        text: header.line
        color: Theme.ink2
    }
}

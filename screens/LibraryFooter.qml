import QtQuick
import Brinmoor

// Where the links are, and how to save another one.
Item {
    id: footer

    required property LibraryScreen screen

    height: 42

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    Row {
        x: Theme.margin(footer.width)
        y: 1
        height: parent.height - 1
        spacing: 7

        IconShape {
            y: Math.round((parent.height - height) / 2)
            width: 14
            height: 14
            name: "actions/16/object-locked"
            color: Theme.ink3
        }
        PlainText {
            height: parent.height
            text: Wording.words("Only on your Mac")
            color: Theme.ink3
            font: Theme.small
        }
    }
    FooterHint {
        anchors.right: parent.right
        // Its ground reaches beyond the words.
        anchors.rightMargin: Theme.margin(footer.width) - 7
        y: 8
        keys: footer.screen.shortcutLabel
        what: footer.screen.closesAfterSave ? Wording.words("to save & close a tab")
                                            : Wording.words("to save a tab")
        onClicked: footer.screen.changeShortcut()
    }
}

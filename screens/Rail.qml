import QtQuick
import Brinmoor

// The narrow strip of sections.
Rectangle {
    width: 60
    color: Theme.sidebar
    Accessible.role: Accessible.ToolBar

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }
    RailButton {
        x: 10
        y: 16
        text: Wording.words("Library")
        drawing: "places/22/mail-folder-inbox"
        selected: true
    }
}

import QtQuick
import Brinmoor

// An entry of the shell's menus, or the line between two groups of them.
MenuEntry {
    id: entry

    property bool line: false

    implicitHeight: line ? 11 : 30
    opacity: enabled || line ? 1 : 0.4
    Accessible.ignored: line

    Rectangle {
        visible: entry.line
        x: 10
        y: 5
        width: parent.width - 20
        height: 1
        color: Theme.separator
    }
}

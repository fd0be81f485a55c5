import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A line between groups of choices.
T.MenuSeparator {
    implicitWidth: 40
    implicitHeight: 11
    padding: 0
    contentItem: Item {
        Rectangle {
            x: 10
            y: 5
            width: parent.width - 20
            height: 1
            color: Theme.separator
        }
    }
}

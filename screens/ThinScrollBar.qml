import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Seen while scrolling or under the pointer.
T.ScrollBar {
    id: control

    implicitWidth: 5 + rightPadding
    rightPadding: 4
    visible: size < 1
    minimumSize: 0.08

    contentItem: Rectangle {
        implicitWidth: 5
        radius: 3
        color: Theme.thumb
        opacity: control.active ? 1 : 0
        Behavior on opacity {
            NumberAnimation { duration: Theme.groundDuration }
        }
    }
}

import QtQuick
import Brinmoor

Rectangle {
    id: mark

    required property bool checked

    width: 18
    height: 18
    radius: 6
    color: checked ? Theme.sage : "transparent"
    border.width: checked ? 0 : 1
    border.color: Theme.muted

    IconShape {
        visible: mark.checked
        anchors.centerIn: parent
        width: 16
        height: 16
        scale: 0.75
        name: "actions/16/checkmark"
        color: Theme.onAccent
    }
}

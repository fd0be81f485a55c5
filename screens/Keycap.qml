import QtQuick
import Brinmoor

Rectangle {
    id: keycap

    required property string keys

    width: Math.ceil(label.implicitWidth) + 14
    height: 20
    radius: 6
    color: Theme.raised
    border.width: 1
    border.color: Theme.field

    PlainText {
        id: label
        anchors.fill: parent
        text: keycap.keys
        font: Theme.tag
        horizontalAlignment: Text.AlignHCenter
    }
}

import QtQuick
import Brinmoor

Rectangle {
    id: tagMark

    required property string tag
    property int greatestWidth: 240

    width: Math.min(Math.ceil(label.implicitWidth) + 12, greatestWidth)
    height: 20
    radius: 6
    color: Theme.fill

    PlainText {
        id: label
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        text: "#" + tagMark.tag
        color: Theme.ink2
        font: Theme.tag
    }
}

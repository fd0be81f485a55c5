import QtQuick
import Brinmoor

// What one choice of a menu says.
Item {
    id: entry

    required property string text
    required property string detail
    required property string drawing
    required property bool destructive
    required property bool markable
    required property bool marked

    readonly property real asideWidth: markable ? 28 : detail.length > 0 ? aside.implicitWidth + 20
                                                                         : 0

    readonly property real start: drawing.length > 0 ? 35 : 10

    implicitWidth: label.implicitWidth + start + 10 + asideWidth
    implicitHeight: 30

    IconShape {
        visible: entry.drawing.length > 0
        x: 10
        y: 7
        width: 16
        height: 16
        name: entry.drawing
        color: entry.destructive ? Theme.rust : Theme.ink2
    }
    PlainText {
        id: label
        x: entry.start
        width: parent.width - entry.start - 10 - entry.asideWidth
        height: parent.height
        text: entry.text
        color: entry.destructive ? Theme.rust : Theme.ink
    }
    PlainText {
        id: aside
        anchors.right: parent.right
        anchors.rightMargin: 10
        height: parent.height
        text: entry.detail
        color: Theme.ink3
        font: Theme.small
    }
    IconShape {
        visible: entry.marked
        x: parent.width - 10 - width
        y: Math.round((parent.height - height) / 2)
        width: 16
        height: 16
        name: "actions/16/checkmark"
        color: Theme.sage
    }
}

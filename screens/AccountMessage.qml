import QtQuick
import Brinmoor

// The one line that says how it goes.
Item {
    id: message

    property string text
    property bool busy: false
    property string drawing
    property int topSpace: 0

    readonly property bool marked: busy || drawing.length > 0

    visible: message.text.length > 0 || message.busy
    width: parent ? parent.width : 0
    height: topSpace + ground.height
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message.text

    Rectangle {
        id: ground

        y: message.topSpace
        width: parent.width
        height: Math.max(20, words.height) + 22
        radius: 12
        color: Theme.tint0

        Spinner {
            visible: message.busy
            x: 14
            y: 14
        }
        IconShape {
            visible: !message.busy && message.drawing.length > 0
            x: 14
            y: 13
            width: 16
            height: 16
            name: message.drawing.length > 0 ? message.drawing : "actions/16/mail-message"
            color: Theme.sage
        }
        PlainText {
            id: words
            x: message.marked ? 40 : 14
            y: 11
            width: parent.width - x - 14
            text: message.text
            color: Theme.ink2
            wrapMode: Text.Wrap
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
            Accessible.ignored: true
        }
    }
}

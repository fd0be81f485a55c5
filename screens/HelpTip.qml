import QtQuick
import QtQuick.Templates as T
import Brinmoor

// What a control is for, under the resting pointer.
T.ToolTip {
    id: tip

    implicitWidth: Math.ceil(implicitContentWidth) + 18
    implicitHeight: 26
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 6 : 0
    padding: 0
    margins: 6
    delay: 500
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    background: Rectangle {
        radius: 8
        color: Theme.ink
    }
    contentItem: PlainText {
        text: tip.text
        color: Theme.paper
        font: Theme.smallMedium
        horizontalAlignment: Text.AlignHCenter
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The keys that save a tab; pressing the hint changes them.
T.AbstractButton {
    id: control

    required property string keys
    required property string what

    implicitWidth: Math.ceil(implicitContentWidth) + 12
    implicitHeight: 28
    padding: 0
    leftPadding: 6
    rightPadding: 6
    hoverEnabled: true
    text: Wording.words("Change capture shortcut")
    Accessible.role: Accessible.Button
    Accessible.description: keys + " " + what

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 8
        color: control.down ? Theme.press : control.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
        }
    }
    contentItem: Row {
        spacing: 8

        Keycap {
            y: Math.round((parent.height - height) / 2)
            keys: control.keys
        }
        PlainText {
            height: parent.height
            text: control.what
            color: Theme.ink3
            font: Theme.small
            Accessible.ignored: true
        }
    }
    HelpTip {
        visible: control.hovered
        y: -height - 6
        text: control.text
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Shows a shortcut and records a new one. It grows to the left: its right edge is the row's.
T.Button {
    id: control

    required property ShortcutRecorder recorder

    implicitWidth: Math.max(120, Math.ceil(implicitContentWidth) + 24)
    implicitHeight: 30
    padding: 0
    hoverEnabled: true
    text: control.recorder.title
    Accessible.name: Wording.words("Record capture keyboard shortcut")
    Accessible.description: control.recorder.action + ". " + control.recorder.title

    onClicked: control.recorder.press()
    onVisibleChanged: {
        if (!visible)
            control.recorder.cancel();
    }
    Component.onDestruction: control.recorder.cancel()
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Item {
        Rectangle {
            visible: control.recorder.recording
            anchors.fill: parent
            anchors.margins: -3
            radius: 11
            color: Theme.ring
        }
        Rectangle {
            anchors.fill: parent
            radius: 8
            color: Theme.raised
            border.width: 1
            border.color: control.recorder.recording ? Theme.sage
                                                     : control.hovered ? Theme.fieldHover : Theme.field
        }
        FocusRing {
            visible: control.visualFocus && !control.recorder.recording
            shapeRadius: 8
        }
    }
    contentItem: PlainText {
        text: control.text
        color: control.recorder.recording ? Theme.sage : Theme.ink
        font: Theme.sans(13, Font.Medium)
        horizontalAlignment: Text.AlignHCenter
    }
}

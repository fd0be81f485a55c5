pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One of the buttons behind a row.
T.AbstractButton {
    id: control

    required property string title
    required property string drawing
    property color tone: Theme.sage
    /// From 0 to 1: how near the row is to doing this by itself.
    property real expansion: 0
    /// Letting the row go does it.
    property bool pending: false

    readonly property color label: pending ? Theme.onAccent : Qt.alpha(Theme.ink, 0.82)

    implicitWidth: Math.max(hovered ? 70 : 58, 58 + 70 * expansion)
    padding: 0
    hoverEnabled: true
    text: pending ? Wording.words("Release ") + title.toLowerCase() : title
    Accessible.role: Accessible.Button
    Accessible.name: title

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    Behavior on implicitWidth {
        enabled: control.expansion === 0
        NumberAnimation { duration: Theme.movement(Theme.groundDuration); easing.type: Easing.OutQuad }
    }
    background: Rectangle {
        radius: 14
        color: control.pending ? control.tone
                               : Qt.alpha(control.tone, 0.06 + 0.10 * control.expansion)
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Item {
        Column {
            y: Math.round((parent.height - height) / 2)
            width: parent.width
            spacing: 4

            Rectangle {
                x: Math.round((parent.width - width) / 2)
                width: control.hovered ? 34 : 26
                height: 26
                radius: 13
                scale: control.pending ? 1.08 : 1
                color: control.pending ? Qt.alpha(Theme.onAccent, 0.16)
                                       : Qt.alpha(control.tone, control.hovered ? 0.17 : 0.11)
                Behavior on width {
                    NumberAnimation { duration: Theme.movement(Theme.groundDuration); easing.type: Easing.OutQuad }
                }

                IconShape {
                    anchors.centerIn: parent
                    width: 16
                    height: 16
                    name: control.drawing
                    color: control.pending ? Theme.onAccent : control.tone
                }
            }
            PlainText {
                x: 2
                width: parent.width - 4
                height: 12
                text: control.text
                color: control.label
                font: Theme.swipeLabel
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 7
                horizontalAlignment: Text.AlignHCenter
                Accessible.ignored: true
            }
        }
    }
}

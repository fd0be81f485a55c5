pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A button with a word on it; the four kinds give it their colours.
T.Button {
    id: control

    property bool small: false
    property color fill: "transparent"
    property color labelColor: Theme.ink
    property color hoverGround: Theme.hover
    property color pressGround: Theme.press
    property color ringColor: Theme.sage

    readonly property int shapeRadius: small ? 8 : 10

    implicitWidth: Math.ceil(implicitContentWidth) + 2 * (small ? 11 : 15)
    implicitHeight: small ? 28 : 34
    padding: 0
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4
    font: small ? Theme.smallButton : Theme.button

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: control.shapeRadius
        color: control.fill

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.down ? control.pressGround
                                : control.hovered ? control.hoverGround
                                                  : Qt.alpha(control.hoverGround, 0)
            Behavior on color {
                ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
            }
        }
        FocusRing {
            visible: control.visualFocus
            shapeRadius: control.shapeRadius
            border.color: control.ringColor
        }
    }
    contentItem: PlainText {
        text: control.text
        color: control.labelColor
        font: control.font
        horizontalAlignment: Text.AlignHCenter
    }
}

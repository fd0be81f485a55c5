pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// On or off; `text` is its name for those who don't see it.
T.Switch {
    id: control

    implicitWidth: 38
    implicitHeight: 22
    padding: 0
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4

    Keys.onReturnPressed: control.flip()
    Keys.onEnterPressed: control.flip()

    function flip() {
        control.toggle();
        control.toggled();
    }

    indicator: Rectangle {
        width: 38
        height: 22
        radius: 11
        color: control.checked ? Theme.sage : Theme.track
        Behavior on color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }

        Rectangle {
            x: control.checked ? 19 : 3
            y: 3
            width: 16
            height: 16
            radius: 8
            color: control.checked ? Theme.onAccent : Theme.dark ? Theme.ink : Theme.raised
            Behavior on x {
                NumberAnimation {
                    duration: Theme.movement(Theme.groundDuration)
                    easing.type: Easing.OutQuad
                }
            }
        }
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
        }
    }
    contentItem: Item {}
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A box to check and what it means.
T.CheckBox {
    id: control

    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding
    implicitHeight: 20
    padding: 0
    leftPadding: 28
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4

    Keys.onReturnPressed: control.flip()
    Keys.onEnterPressed: control.flip()

    function flip() {
        control.toggle();
        control.toggled();
    }

    indicator: CheckBoxMark {
        y: 1
        checked: control.checked

        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
        }
    }
    contentItem: PlainText {
        text: control.text
        font: Theme.sans(13, Font.Medium)
    }
}

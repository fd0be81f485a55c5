pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One choice of a menu; a checked one has its mark at the right.
T.MenuItem {
    id: control

    property bool destructive: false
    /// At the right, in place of the mark: a number, for instance.
    property string detail: ""
    /// At the left.
    property string drawing: ""

    implicitWidth: Math.ceil(implicitContentWidth)
    implicitHeight: visible ? 30 : 0
    padding: 0
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4
    Accessible.role: checkable ? Accessible.CheckBox : Accessible.MenuItem
    Accessible.name: text

    background: Rectangle {
        radius: 9
        color: control.down ? Theme.press
                            : control.highlighted || control.hovered ? Theme.hover : "transparent"
    }
    arrow: null
    indicator: null
    contentItem: MenuEntryLabel {
        text: control.text
        detail: control.detail
        drawing: control.drawing
        destructive: control.destructive
        markable: control.checkable
        marked: control.checked
    }
}

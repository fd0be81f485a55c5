pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One tab with its box.
Item {
    id: row

    required property int index
    required property string title
    required property string domain
    required property string address
    required property string iconHint
    required property bool selected
    property bool keyboardHere: false
    /// Below the title.
    property string detail: domain

    signal toggled

    height: 48
    Accessible.role: Accessible.CheckBox
    Accessible.name: title
    Accessible.description: detail
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onPressAction: row.toggled()
    Accessible.onToggleAction: row.toggled()

    HoverHandler {
        id: pointer
    }
    TapHandler {
        onTapped: row.toggled()
    }
    Rectangle {
        anchors.fill: parent
        radius: 10
        color: pointer.hovered || row.keyboardHere ? Theme.hover : Qt.alpha(Theme.hover, 0)
        border.width: row.keyboardHere ? 2 : 0
        border.color: Theme.sage
        Behavior on color {
            ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
        }
    }
    CheckBoxMark {
        x: 12
        y: Math.round((parent.height - height) / 2)
        checked: row.selected
    }
    DomainTile {
        x: 42
        y: Math.round((parent.height - height) / 2)
        small: true
        domain: row.domain
        address: row.address
        iconHint: row.iconHint
    }
    Column {
        x: 86
        y: Math.round((parent.height - height) / 2)
        width: parent.width - 86 - 12

        PlainText {
            width: parent.width
            height: 20
            text: row.title
            font: Theme.label
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            height: 16
            text: row.detail
            color: Theme.ink3
            font: Theme.small
            Accessible.ignored: true
        }
    }
}

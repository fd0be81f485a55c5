pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One open tab: pressing it brings the tab to the front, its button saves it.
Item {
    id: row

    required property int index
    required property string title
    required property string domain
    required property string browserName
    required property string address
    property bool selected: false

    readonly property string place: domain + " · " + browserName

    signal activated
    signal saved

    height: 50
    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.description: place
    Accessible.selected: selected
    Accessible.onPressAction: row.activated()

    HoverHandler {
        id: pointer
    }
    TapHandler {
        onTapped: row.activated()
    }
    Rectangle {
        anchors.fill: parent
        radius: 12
        color: row.selected ? Theme.tint : pointer.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
    }
    DomainTile {
        x: 10
        y: 9
        small: true
        domain: row.domain
        address: row.address
    }
    Column {
        x: 54
        y: 7
        width: parent.width - 54 - 110

        PlainText {
            width: parent.width
            height: 20
            text: row.title
            font: Theme.rowTitle
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            height: 16
            text: row.place
            color: Theme.ink3
            font: Theme.small
            Accessible.ignored: true
        }
    }
    IconButton {
        id: save

        anchors.right: parent.right
        anchors.rightMargin: 68
        y: 11
        visible: row.selected || pointer.hovered || activeFocus
        // A click leaves the keyboard with the search field.
        focusPolicy: row.selected ? Qt.TabFocus : Qt.NoFocus
        drawing: "actions/16/bookmark-new"
        drawingColor: Theme.ink
        text: Wording.words("Save this tab")
        onClicked: row.saved()

        HelpTip {
            visible: save.hovered
            text: save.text
        }
    }
    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: 10
        y: 15
        width: 46
        height: 20
        radius: 6
        visible: row.selected || row.index < 9
        color: row.selected ? Theme.raised : "transparent"
        border.width: row.selected ? 1 : 0
        border.color: Theme.field

        PlainText {
            anchors.fill: parent
            horizontalAlignment: Text.AlignHCenter
            text: row.selected ? "↵" : Wording.words("⌘%1").arg(row.index + 1)
            color: row.selected ? Theme.ink : Theme.ink2
            font: Theme.tag
            Accessible.ignored: true
        }
    }
}

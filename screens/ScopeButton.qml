pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Where a search looks: in the section that is shown, or everywhere.
T.Button {
    id: control

    required property LibrarySearch search

    readonly property color wordColor: hovered || menu.visible ? Theme.ink : Theme.ink2

    implicitWidth: Math.ceil(implicitContentWidth)
    implicitHeight: 30
    padding: 0
    hoverEnabled: true
    text: search.scopeTitle
    Accessible.role: Accessible.ButtonMenu
    Accessible.description: tip.text

    onClicked: menu.visible ? menu.close() : menu.open()
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()
    Keys.onDownPressed: control.clicked()

    background: Rectangle {
        radius: 8
        color: control.down || menu.visible ? Theme.press
                                            : control.hovered ? Theme.hover
                                                              : Qt.alpha(Theme.hover, 0)
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: Row {
        leftPadding: 10
        rightPadding: 6
        spacing: 4

        PlainText {
            height: parent.height
            text: control.text
            color: control.wordColor
            font: Theme.filter
        }
        IconShape {
            y: Math.round((parent.height - height) / 2)
            width: 16
            height: 16
            scale: 0.75
            name: "actions/16/go-down"
            color: control.wordColor
        }
    }

    HelpTip {
        id: tip
        visible: control.hovered && !menu.visible
        text: Wording.words("Choose where to search")
    }
    PopupMenu {
        id: menu

        x: control.width - width
        y: control.height + 11

        MenuEntry {
            text: control.search.sectionTitle
            checkable: true
            autoExclusive: true
            checked: !control.search.everywhere
            onTriggered: control.search.everywhere = false
        }
        MenuEntry {
            id: everywhere
            text: Wording.words("Everywhere")
            checkable: true
            autoExclusive: true
            checked: control.search.everywhere
            Accessible.description: everywhereTip.text
            onTriggered: control.search.everywhere = true

            HelpTip {
                id: everywhereTip
                visible: everywhere.hovered
                text: Wording.words("Search active and archived links")
            }
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// Which links are shown, and the menu that refines them.
Item {
    id: row

    required property LibrarySearch search

    implicitHeight: 30

    Row {
        // The grounds reach beyond the page's edge, so that the words begin on it.
        x: -12
        spacing: 4

        Repeater {
            model: [
                { filter: "All links", label: Wording.words("Library") },
                { filter: "Favorites", label: Wording.words("Favorites") },
                { filter: "Archive", label: Wording.words("Archive") }
            ]
            delegate: Pill {
                required property var modelData

                text: modelData.label
                selected: row.search.filter === modelData.filter
                onClicked: row.search.filter = modelData.filter
            }
        }
    }
    IconButton {
        id: button

        anchors.right: parent.right
        y: 1
        drawing: "actions/16/view-filter"
        drawingColor: row.search.refined ? Theme.sage
                                         : hovered || down || menu.visible ? Theme.ink : Theme.ink2
        held: menu.visible
        text: Wording.words("Filter results")
        Accessible.role: Accessible.ButtonMenu
        onClicked: menu.visible ? menu.close() : menu.open()
        Keys.onDownPressed: clicked()

        HelpTip {
            visible: button.hovered && !menu.visible
            text: button.text
        }
        FilterMenu {
            id: menu

            x: button.width - width
            y: button.height + 5
            search: row.search
        }
    }
}

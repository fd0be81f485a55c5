pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

Column {
    id: page

    required property SettingsScreen screen

    width: parent ? parent.width : 0

    SettingsGroup {
        SettingsAction {
            text: Wording.words("Archive all links…")
            drawing: "places/16/folder-download"
            enabled: page.screen.canArchiveAll
            onClicked: page.screen.archiveAll()
        }
        SettingsAction {
            text: Wording.words("Export backup…")
            drawing: "actions/16/document-export"
            onClicked: page.screen.exportBackup()
        }
        SettingsAction {
            text: Wording.words("Import backup…")
            drawing: "actions/16/document-import"
            last: true
            onClicked: page.screen.importBackup()
        }
    }
    Item {
        width: 1
        height: 11
    }
    T.Button {
        id: reveal

        x: -8
        implicitWidth: Math.ceil(implicitContentWidth) + 16
        implicitHeight: 28
        padding: 0
        hoverEnabled: true
        font: Theme.smallButton
        text: Wording.words("Show in Finder")

        Keys.onReturnPressed: reveal.clicked()
        Keys.onEnterPressed: reveal.clicked()
        onClicked: page.screen.showInFiles()

        background: Rectangle {
            radius: 8
            color: reveal.down ? Theme.press
                               : reveal.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
            FocusRing {
                visible: reveal.visualFocus
                shapeRadius: parent.radius
                gap: 0
            }
        }
        contentItem: ButtonLabel {
            inset: 8
            gap: 6
            drawing: "places/16/folder"
            text: reveal.text
            color: Theme.sage
            font: reveal.font
        }
    }
}

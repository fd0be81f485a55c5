import QtQuick
import Brinmoor

// The library window: the rail, the section beside it, and the sheets above both. A section or a
// sheet is made when it is first shown.
Rectangle {
    id: root

    required property AppRoot screen
    required property ShellMenus menus

    readonly property bool covered: alert.shown || archiveAlert.shown

    color: Theme.paper

    MainMenu {
        id: mainMenu
        menus: root.menus
        z: 1
    }
    FocusScope {
        id: page

        anchors.fill: parent
        enabled: !root.covered
        focus: !root.covered

        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "LibraryView"
            screen: root.screen.library
            shown: root.screen.section === "library"
            kept: true
        }
        Rail {
            id: rail
            height: parent.height
            screen: root.screen

            TapHandler {
                acceptedButtons: Qt.RightButton
                onTapped: at => mainMenu.popup(at.position.x, at.position.y)
            }
        }
    }
    EmptyArchiveAlert {
        id: archiveAlert
        screen: root.screen.library
    }
    ErrorAlert {
        id: alert
        error: root.screen.error
        onDismissed: root.screen.dismissError()
        onSettingsWanted: root.screen.showBrowserAccess()
    }
}

import QtQuick
import Brinmoor

// The narrow strip of sections and actions. It comes last in the order of the keyboard.
Rectangle {
    id: rail

    required property AppRoot screen

    width: 60
    color: Theme.sidebar
    Accessible.role: Accessible.ToolBar

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }
    Column {
        x: 10
        y: 16
        spacing: 6

        RailButton {
            text: Wording.words("Library")
            drawing: "places/22/mail-folder-inbox"
            selected: rail.screen.section === "library"
            onClicked: rail.screen.showLibrary()
        }
        RailButton {
            text: Wording.words("Tags")
            character: "#"
            selected: rail.screen.section === "tags"
            onClicked: rail.screen.showTags()
        }
        RailButton {
            text: Wording.words("Review importance")
            drawing: "actions/22/view-pim-tasks"
            enabled: false
        }
        RailButton {
            text: Wording.words("Search open tabs")
            drawing: "actions/22/window-duplicate"
            onClicked: rail.screen.searchTabs()
        }
        RailButton {
            text: Wording.words("Add a link")
            drawing: "actions/22/list-add"
            onClicked: rail.screen.addLink()
        }
    }
    Column {
        x: 10
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 14
        spacing: 6

        RailButton {
            text: Wording.words("Account")
            drawing: "actions/22/user-identity"
            selected: rail.screen.section === "account"
            onClicked: rail.screen.showAccount()
        }
        RailButton {
            text: Wording.words("Settings")
            drawing: "actions/22/configure"
            selected: rail.screen.section === "settings"
            onClicked: rail.screen.showSettings()
        }
    }
}

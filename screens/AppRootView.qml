import QtQuick
import Brinmoor

// The library window: the rail, the section beside it, and the sheets above both. A section or a
// sheet is made when it is first shown.
Rectangle {
    id: root

    required property AppRoot screen
    required property ShellMenus menus

    readonly property bool underSheet: screen.add.isShown || screen.detail.isShown
                                       || screen.onboarding.shown
                                       || screen.emailShare.isShown || screen.cleanupReview.isShown
    readonly property bool underAlert: alert.shown || emptyArchive.shown || archiveAll.shown
                                       || screen.tags.asksForRemoval
    readonly property bool covered: underSheet || underAlert

    color: Theme.paper

    MainMenu {
        id: mainMenu
        menus: root.menus
        z: 1
    }
    FocusScope {
        id: page

        anchors.fill: parent
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
        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "TagsView"
            screen: root.screen.tags
            shown: root.screen.section === "tags"
        }
        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "AccountView"
            screen: root.screen.account
            shown: root.screen.section === "account"
        }
        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "SettingsView"
            screen: root.screen.settings
            shown: root.screen.section === "settings"
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
        id: emptyArchive
        screen: root.screen.library
    }
    SheetPlace {
        view: "TagRemovalAlert"
        screen: root.screen.tags
        shown: root.screen.tags.asksForRemoval
        covered: alert.shown
    }
    SheetPlace {
        view: "AddSheet"
        screen: root.screen.add
        shown: root.screen.add.isShown
        covered: alert.shown
    }
    SheetPlace {
        view: "DetailSheet"
        screen: root.screen.detail
        shown: root.screen.detail.isShown
        covered: alert.shown
    }
    SheetPlace {
        view: "EmailShareSheet"
        screen: root.screen.emailShare
        shown: root.screen.emailShare.isShown
        covered: alert.shown
    }
    SheetPlace {
        view: "CleanupReviewSheet"
        screen: root.screen.cleanupReview
        shown: root.screen.cleanupReview.isShown
        covered: alert.shown
    }
    SheetPlace {
        view: "OnboardingSheet"
        screen: root.screen.onboarding
        shown: root.screen.onboarding.shown
        covered: alert.shown
    }
    ArchiveAllAlert {
        id: archiveAll
        screen: root.screen.settings
    }
    ErrorAlert {
        id: alert
        error: root.screen.error
        leadsToSettings: root.screen.errorLeadsToSettings
        onDismissed: root.screen.dismissError()
        onSettingsWanted: root.screen.showBrowserAccess()
    }
}

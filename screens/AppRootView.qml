import QtQuick
import Brinmoor

// The library window: the rail, the section beside it, and the sheets above both. A section or a
// sheet is made when it is first shown.
Rectangle {
    id: root

    required property AppRoot screen
    required property ShellMenus menus

    /// A sheet or an alert stands above the sections. Of those that stand, the last one below has
    /// the keyboard.
    readonly property bool covered: emptyArchive.shown || emptyArchive.covered

    color: Theme.paper

    // What a gesture had begun doesn't end as an action under a sheet.
    onCoveredChanged: {
        if (covered)
            root.screen.library.commands.endSwipe();
    }

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
            covered: root.covered
            kept: true
        }
        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "TagsView"
            screen: root.screen.tags
            shown: root.screen.section === "tags"
            covered: root.covered
        }
        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "AccountView"
            screen: root.screen.account
            shown: root.screen.section === "account"
            covered: root.covered
        }
        Section {
            anchors.left: rail.right
            anchors.right: parent.right
            height: parent.height
            view: "SettingsView"
            screen: root.screen.settings
            shown: root.screen.section === "settings"
            covered: root.covered
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
        covered: tagRemoval.shown || tagRemoval.covered
        focus: shown && !covered
    }
    SheetPlace {
        id: tagRemoval
        view: "TagRemovalAlert"
        screen: root.screen.tags
        shown: root.screen.tags.asksForRemoval
        covered: add.shown || add.covered
    }
    SheetPlace {
        id: add
        view: "AddSheet"
        screen: root.screen.add
        shown: root.screen.add.isShown
        covered: detail.shown || detail.covered
    }
    SheetPlace {
        id: detail
        view: "DetailSheet"
        screen: root.screen.detail
        shown: root.screen.detail.isShown
        covered: email.shown || email.covered
    }
    SheetPlace {
        id: email
        view: "EmailShareSheet"
        screen: root.screen.emailShare
        shown: root.screen.emailShare.isShown
        covered: cleanup.shown || cleanup.covered
    }
    SheetPlace {
        id: cleanup
        view: "CleanupReviewSheet"
        screen: root.screen.cleanupReview
        shown: root.screen.cleanupReview.isShown
        covered: tour.shown || tour.covered
    }
    SheetPlace {
        id: tour
        view: "OnboardingSheet"
        screen: root.screen.onboarding
        shown: root.screen.onboarding.shown
        covered: archiveAll.shown || archiveAll.covered
    }
    ArchiveAllAlert {
        id: archiveAll
        screen: root.screen.settings
        covered: alert.shown
        focus: shown && !covered
    }
    ErrorAlert {
        id: alert
        error: root.screen.error
        leadsToSettings: root.screen.errorLeadsToSettings
        onDismissed: root.screen.dismissError()
        onSettingsWanted: root.screen.showBrowserAccess()
    }
}

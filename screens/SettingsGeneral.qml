import QtQuick
import Brinmoor

Column {
    id: page

    required property SettingsScreen screen

    width: parent ? parent.width : 0

    Item {
        width: 1
        height: 24
    }
    SectionLabel {
        x: 2
        text: Wording.words("APPEARANCE")
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: 8
    }
    Row {
        width: parent.width
        spacing: 14

        ThemeTile {
            width: Math.floor((parent.width - parent.spacing) / 2)
            forDark: false
            selected: !page.screen.dark
            text: Wording.words("Original cream & sage")
            onClicked: page.screen.chooseAppearance(false)
        }
        ThemeTile {
            width: Math.floor((parent.width - parent.spacing) / 2)
            forDark: true
            selected: page.screen.dark
            text: Wording.words("Charcoal & emerald")
            onClicked: page.screen.chooseAppearance(true)
        }
    }
    SettingsNote {
        text: Wording.words("Applies throughout Brinmoor. Your choice is remembered.")
    }
    SettingsGroup {
        label: Wording.words("APP UPDATES")

        SettingsSwitch {
            title: Wording.words("Check for new versions automatically")
            note: page.screen.updatesNote
            enabled: page.screen.hasUpdates
            on: page.screen.checksAutomatically
            onChanged: on => page.screen.checksAutomatically = on
        }
        SettingsRow {
            title: page.screen.version
            titleColor: Theme.ink2
            titleFont: Theme.fieldText

            SecondaryButton {
                small: true
                text: Wording.words("Check for Updates…")
                enabled: page.screen.canCheckForUpdates
                onClicked: page.screen.checkForUpdates()
            }
        }
    }
    SettingsGroup {
        label: Wording.words("ANONYMOUS USAGE")

        SettingsSwitch {
            title: Wording.words("Share anonymous usage counts")
            note: Wording.words("Only anonymous counts of actions go to the service. No URLs, titles, notes, tags, account IDs or device identifiers are included.")
            on: page.screen.sharesUsage
            onChanged: on => page.screen.sharesUsage = on
        }
        OwnerUsageView {
            visible: page.screen.ownerUsage.isOwner
            usage: page.screen.ownerUsage
        }
        SettingsRow {
            title: Wording.words("Account")

            SecondaryButton {
                small: true
                text: Wording.words("Open account")
                onClicked: page.screen.openAccount()
            }
        }
    }
}

import QtQuick
import Brinmoor

Column {
    id: page

    required property SettingsScreen screen

    width: parent ? parent.width : 0

    SettingsGroup {
        label: Wording.words("CLIPBOARD")

        SettingsRow {
            id: clipboard
            title: Wording.words("Offer to save copied links")
            note: Wording.words("Offers Save or Add note after you copy a new web link. Clipboard contents stay on this Mac.")

            SecondaryButton {
                anchors.verticalCenter: parent.verticalCenter
                small: true
                text: Wording.words("Preview popup")
                Accessible.name: Wording.words("Preview clipboard offer")
                onClicked: page.screen.previewClipboardOffer()
            }
            ToggleSwitch {
                anchors.verticalCenter: parent.verticalCenter
                text: clipboard.title
                checked: page.screen.offersCopiedLinks
                Accessible.description: clipboard.note
                onToggled: page.screen.offersCopiedLinks = checked
            }
        }
    }
    SettingsGroup {
        label: Wording.words("AUTO-TAGGING")

        SettingsSwitch {
            title: Wording.words("Suggest tags when saving links")
            note: Wording.words("Uses titles, websites, and your existing tags. Everything stays on this Mac.")
            on: page.screen.suggestsTags
            onChanged: on => page.screen.suggestsTags = on
        }
    }
    SettingsGroup {
        label: Wording.words("KEYBOARD SHORTCUTS")
        note: Wording.words("Click a shortcut, then press a new combination. Escape cancels.")

        Repeater {
            model: page.screen.shortcuts
            ShortcutRow {}
        }
    }
    Item {
        width: 1
        height: 12
    }
    Flow {
        width: parent.width
        spacing: 8

        SecondaryButton {
            small: true
            text: Wording.words("Use memorable preset: ⇧⌘K / ⇧⌘N")
            onClicked: page.screen.applyPreset()
        }
        SecondaryButton {
            small: true
            text: Wording.words("Show the quick tour")
            onClicked: page.screen.showTour()
        }
    }
    SettingsGroup {
        label: Wording.words("AFTER SAVING")

        SettingsSwitch {
            title: Wording.words("Close source tab after a successful save")
            note: Wording.words("Applies to Save link and Save with a note. Bulk saves never close tabs.")
            on: page.screen.closesSourceTab
            onChanged: on => page.screen.closesSourceTab = on
        }
    }
    SettingsGroup {
        label: Wording.words("BROWSERS & PRIVACY")

        SettingsRow {
            title: Wording.words("Brinmoor reads browser tabs only when you use a capture or tab tool.")
            titleColor: Theme.ink2
            titleFont: Theme.body

            SecondaryButton {
                small: true
                text: Wording.words("Open Automation Settings ↗")
                onClicked: page.screen.showBrowserAccess()
            }
        }
    }
}

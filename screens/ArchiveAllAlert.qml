import QtQuick
import Brinmoor

// The question before everything is archived, over the whole window.
Alert {
    id: alert

    required property SettingsScreen screen

    shown: alert.screen.archiveTitle.length > 0
    title: ""
    message: Wording.words("All saved links will move to Archive, including links hidden by filters. Your notes and tags stay with them. You can undo this.")
    confirmText: Wording.words("Archive all")
    onConfirmed: alert.screen.confirmArchiveAll()
    onCancelled: alert.screen.cancelArchiveAll()

    // The words stay while the alert leaves.
    Connections {
        target: alert.screen
        function onArchiveTitleChanged(): void {
            if (alert.screen.archiveTitle.length > 0)
                alert.title = alert.screen.archiveTitle;
        }
    }
}

import QtQuick
import Brinmoor

// Asks before every archived link goes for good.
Alert {
    id: alert

    required property LibraryScreen screen

    shown: screen.bulkQuestion.length > 0
    destructive: true
    title: ""
    message: Wording.words("These archived links, notes, and tags will be removed from this Mac. This cannot be undone. Links outside Archive are kept.")
    confirmText: Wording.words("Delete forever")

    Connections {
        target: alert.screen
        function onBulkActionChanged() {
            // The words stay while the alert leaves.
            if (alert.screen.bulkQuestion.length > 0)
                alert.title = alert.screen.bulkQuestion;
        }
    }
    onConfirmed: screen.emptyArchive()
    onCancelled: screen.cancelBulkAction()
}

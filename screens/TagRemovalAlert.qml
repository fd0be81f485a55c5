import QtQuick
import Brinmoor

// Asks before a tag is taken from all its links.
Alert {
    id: alert

    required property TagsScreen screen

    cardWidth: 388
    shown: screen.asksForRemoval
    title: screen.removalTitle
    message: screen.removalMessage
    confirmText: Wording.words("Remove tag")
    destructive: true
    onConfirmed: screen.confirmRemoval()
    onCancelled: screen.cancelRemoval()
}

import QtQuick
import QtQuick.Dialogs

// Asks for a backup file: one that exists, or a place to write to.
FileDialog {
    id: dialog

    signal answered(file: url)
    signal cancelled()

    nameFilters: ["JSON (*.json)"]
    defaultSuffix: "json"

    onAccepted: dialog.answered(dialog.selectedFile)
    onRejected: dialog.cancelled()
}

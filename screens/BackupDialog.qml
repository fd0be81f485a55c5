import QtQuick
import QtQuick.Dialogs

// Asks for a backup file: one that exists, or a place to write to.
QtObject {
    id: question

    required property int fileMode
    required property url currentFolder
    property url selectedFile
    // The window to which the dialog belongs, if one is open.
    property Window owner
    readonly property bool visible: dialog.visible

    signal answered(file: url)
    signal cancelled()

    function ask(): void {
        question.dialog.fileMode = question.fileMode;
        question.dialog.currentFolder = question.currentFolder;
        if (question.fileMode === FileDialog.SaveFile)
            dialog.selectedFile = question.selectedFile;
        if (question.owner)
            question.dialog.parentWindow = question.owner;
        question.dialog.open();
        if (dialog.visible)
            return;
        // The desktop has no dialog of its own, and Qt's needs a window to be drawn in.
        host.show();
        question.dialog.parentWindow = host;
        question.dialog.open();
    }

    function accept(): void {
        dialog.accept();
    }

    function cancel(): void {
        dialog.reject();
    }

    readonly property FileDialog dialog: FileDialog {
        nameFilters: ["JSON (*.json)"]
        defaultSuffix: "json"

        onAccepted: question.answered(question.dialog.selectedFile)
        onRejected: question.cancelled()
    }

    readonly property Window host: Window {
        title: question.dialog.title
        width: 720
        height: 520
        onClosing: question.dialog.reject()
    }
}

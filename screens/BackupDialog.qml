import QtQuick
import QtQuick.Dialogs
import QtQuick.Templates as T
import Brinmoor

// Asks for a backup file: one that exists, or a place to write to.
QtObject {
    id: question

    required property int fileMode
    required property url currentFolder
    property url selectedFile
    // The window to which the dialog belongs, if one is open.
    property Window owner
    readonly property bool visible: dialog.visible
    /// The question whether a file may be replaced is open, and what the file is called.
    property bool replacing: false
    property string replacedName

    /// What the dialog was left with; whoever asked goes on from here.
    signal chosen(file: url)
    signal answered(file: url)
    signal cancelled()

    function ask(): void {
        if (question.replacing)
            return;
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

    // Asks before the file is written over; "Cancel" leads back to the dialog.
    function askToReplace(name: string): void {
        const window = question.dialog.parentWindow as Window ?? question.host;
        question.replacement.parent = window.contentItem;
        question.replacedName = name;
        question.replacement.open();
        question.replacing = true;
    }

    function endReplacing(): void {
        question.replacing = false;
        question.replacement.close();
    }

    function replace(): void {
        question.endReplacing();
        question.answered(question.dialog.selectedFile);
    }

    function keep(): void {
        question.endReplacing();
        question.currentFolder = question.dialog.currentFolder;
        question.selectedFile = question.dialog.selectedFile;
        question.ask();
    }

    readonly property T.Popup replacement: T.Popup {
        width: parent ? parent.width : 0
        height: parent ? parent.height : 0
        modal: true
        dim: false
        focus: true
        closePolicy: T.Popup.NoAutoClose

        contentItem: FocusScope {
            focus: true

            Alert {
                focus: true
                shown: question.replacing
                title: Wording.words("Replace “") + question.replacedName + Wording.words("”?")
                message: Wording.words("What the file holds now will be lost.")
                confirmText: Wording.words("Replace")
                destructive: true
                onConfirmed: question.replace()
                onCancelled: question.keep()
            }
        }
    }

    readonly property FileDialog dialog: FileDialog {
        nameFilters: ["JSON (*.json)"]
        defaultSuffix: "json"

        onAccepted: question.chosen(question.dialog.selectedFile)
        onRejected: question.cancelled()
    }

    readonly property Window host: Window {
        title: question.dialog.title
        width: 720
        height: 520
        color: Theme.paper
        onClosing: question.dialog.reject()
    }
}

import QtQuick
import Brinmoor

// A field with its name above it.
FocusScope {
    id: field

    required property string label
    /// What the account holds; what is typed goes back to it.
    required property string shown
    property alias inputMethodHints: input.inputMethodHints

    signal edited(text: string)
    signal accepted

    width: parent ? parent.width : 0
    height: 64

    onShownChanged: field.take()
    Component.onCompleted: field.take()

    // Only what differs: setting the same text would move the caret.
    function take(): void {
        if (input.text !== field.shown)
            input.text = field.shown;
    }

    PlainText {
        width: parent.width
        height: 20
        text: field.label
        font: Theme.sans(13, Font.Medium)
        Accessible.ignored: true
    }
    Field {
        id: input
        y: 26
        width: parent.width
        focus: true
        Accessible.name: field.label
        onTextEdited: field.edited(text)
        onAccepted: field.accepted()
    }
}

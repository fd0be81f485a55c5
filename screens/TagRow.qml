pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One tag with its count; pressing it goes to its links. In rename mode it is a field.
Item {
    id: row

    required property int index
    required property string name
    required property string countText
    required property bool editing
    required property string draft
    /// The keyboard is on the list and on this row.
    required property bool current
    /// Something stands above the list and has the keyboard.
    required property bool covered

    readonly property bool showsButtons: !editing && (pointer.hovered || current)

    signal selected
    signal renameWanted
    signal removalWanted
    signal drafted(draft: string)
    signal saved
    signal cancelled

    height: editing ? 50 : 42
    Accessible.role: Accessible.ListItem
    Accessible.name: "#" + name + ", " + countText
    Accessible.onPressAction: row.selected()

    Component.onCompleted: row.enter()
    onEditingChanged: row.enter()
    // The list gives the keyboard to its present row.
    onActiveFocusChanged: {
        if (activeFocus)
            row.enter();
    }
    onCurrentChanged: {
        if (!current) {
            rename.focus = false;
            remove.focus = false;
        }
    }

    function enter() {
        if (!row.editing)
            return;
        if (row.covered)
            input.focus = true;
        else
            input.forceActiveFocus(Qt.OtherFocusReason);
        // A row that is made anew, since the library has changed, goes on where it was.
        if (row.draft === row.name)
            input.selectAll();
        else
            input.cursorPosition = input.length;
    }

    HoverHandler {
        id: pointer
    }
    TapHandler {
        enabled: !row.editing
        onTapped: row.selected()
    }
    Rectangle {
        anchors.fill: parent
        radius: 14
        visible: row.editing || row.showsButtons
        color: Theme.surface
        border.width: row.current && !row.editing ? 2 : 1
        border.color: row.current && !row.editing ? Theme.sage : Theme.line
    }
    PlainText {
        x: row.editing ? 14 : 12
        width: 16
        height: parent.height
        text: "#"
        color: Theme.sage
        font: Theme.sans(13, Font.Medium)
        Accessible.ignored: true
    }
    PlainText {
        x: 31
        width: (row.showsButtons ? rename.x : count.x) - x - 12
        height: parent.height
        visible: !row.editing
        text: row.name
        font: Theme.label
        Accessible.ignored: true
    }
    PlainText {
        id: count
        anchors.right: parent.right
        anchors.rightMargin: 17
        height: parent.height
        visible: !row.editing
        text: row.countText
        color: Theme.ink3
        font: Theme.small
        Accessible.ignored: true
    }
    IconButton {
        id: rename
        anchors.right: remove.left
        anchors.rightMargin: 2
        y: 7
        visible: row.showsButtons
        focusPolicy: row.current ? Qt.TabFocus : Qt.NoFocus
        drawing: "actions/16/document-edit"
        text: Wording.words("Rename ") + row.name
        onClicked: row.renameWanted()

        HelpTip {
            visible: rename.hovered
            text: rename.text
        }
    }
    IconButton {
        id: remove
        anchors.right: count.left
        anchors.rightMargin: 12
        y: 7
        visible: row.showsButtons
        focusPolicy: row.current ? Qt.TabFocus : Qt.NoFocus
        drawing: "actions/16/edit-delete"
        text: Wording.words("Remove ") + row.name
        onClicked: row.removalWanted()

        HelpTip {
            visible: remove.hovered
            text: remove.text
        }
    }
    Field {
        id: input
        x: 37
        y: 8
        width: buttons.x - x - 8
        height: 34
        visible: row.editing
        text: row.draft
        hint: Wording.words("Tag name")
        onTextEdited: row.drafted(text)
        Keys.onReturnPressed: row.saved()
        Keys.onEnterPressed: row.saved()
        Keys.onEscapePressed: row.cancelled()
    }
    Row {
        id: buttons
        anchors.right: parent.right
        anchors.rightMargin: 9
        y: 11
        visible: row.editing
        spacing: 8

        PrimaryButton {
            small: true
            text: Wording.words("Save")
            onClicked: row.saved()
        }
        SecondaryButton {
            small: true
            text: Wording.words("Cancel")
            onClicked: row.cancelled()
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// Where the library is searched from: the words, and where to look for them.
FocusScope {
    id: field

    required property LibrarySearch search

    readonly property alias inputFocused: input.activeFocus

    signal leftDownwards

    implicitHeight: 42

    function enter() {
        input.forceActiveFocus(Qt.ShortcutFocusReason);
        input.selectAll();
    }

    FieldGround {
        anchors.fill: parent
        radius: 12
        focused: input.activeFocus
        hovered: input.hovered
    }
    IconShape {
        x: 14
        y: 13
        width: 16
        height: 16
        name: "actions/16/edit-find"
        color: Theme.ink2
    }
    Field {
        id: input

        x: 28
        width: tools.x - x - 4
        height: parent.height
        framed: false
        focus: true
        text: field.search.query
        hint: Wording.words("Search your library")
        Accessible.role: Accessible.EditableText
        Accessible.searchEdit: true
        Accessible.description: help.text

        onTextEdited: field.search.query = text
        onAccepted: {
            if (suggestions.offered)
                suggestions.take();
        }
        Keys.onDownPressed: {
            if (suggestions.offered)
                suggestions.step(1);
            else
                field.leftDownwards();
        }
        Keys.onUpPressed: {
            if (suggestions.offered)
                suggestions.step(-1);
        }
        Keys.onEscapePressed: {
            if (text.length > 0)
                field.search.query = "";
            else
                field.leftDownwards();
        }

        HelpTip {
            id: help
            visible: input.hovered && !input.activeFocus
            text: Wording.words("Search titles, full web addresses, notes, tags, and archived links. Type # to find a tag.")
        }
    }
    Row {
        id: tools

        anchors.right: parent.right
        anchors.rightMargin: 7
        height: parent.height
        spacing: 10

        IconButton {
            id: clear
            anchors.verticalCenter: parent.verticalCenter
            visible: input.text.length > 0
            drawing: "actions/16/dialog-close"
            drawingColor: hovered || down ? Theme.ink : Theme.ink2
            text: Wording.words("Clear search")
            onClicked: {
                field.search.query = "";
                input.forceActiveFocus(Qt.OtherFocusReason);
            }

            HelpTip {
                visible: clear.hovered
                text: clear.text
            }
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 1
            height: 18
            color: Theme.line
        }
        ScopeButton {
            anchors.verticalCenter: parent.verticalCenter
            search: field.search
        }
    }
    TagSuggestions {
        id: suggestions

        x: 61
        y: parent.height + 5
        search: field.search
        wanted: input.activeFocus
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// The tags of a link and the field that adds to them, with the library's own tags to take from.
FocusScope {
    id: editor

    required property LinkForm form
    property string name

    readonly property alias inputFocused: input.activeFocus

    implicitHeight: column.implicitHeight

    function enterInput() {
        input.forceActiveFocus(Qt.OtherFocusReason);
    }

    function enter(event: KeyEvent) {
        event.accepted = event.modifiers === Qt.NoModifier && editor.form.tagInput.length > 0;
        if (event.accepted)
            editor.form.commitInput();
    }

    Column {
        id: column

        width: parent.width
        spacing: 8

        Item {
            width: parent.width
            height: chips.implicitHeight + 14

            FieldGround {
                anchors.fill: parent
                focused: input.activeFocus
                hovered: pointer.hovered
            }
            HoverHandler {
                id: pointer
                cursorShape: Qt.IBeamCursor
            }
            TapHandler {
                onTapped: editor.enterInput()
            }
            TagFlowLayout {
                id: chips

                x: 9
                y: 7
                width: parent.width - 18

                Repeater {
                    id: chipRepeater
                    model: editor.form.tags
                    delegate: TagChip {
                        required property string modelData

                        tag: modelData
                        greatestWidth: chips.width
                        onClicked: {
                            // The chip goes with its tag; what comes after must not ask it.
                            const owner = editor;
                            owner.enterInput();
                            owner.form.removeTag(tag);
                        }
                    }
                }
                Field {
                    id: input

                    readonly property Item lastChip:
                        chipRepeater.count > 0 ? chipRepeater.itemAt(chipRepeater.count - 1) : null
                    readonly property real rest:
                        lastChip ? chips.width - lastChip.x - lastChip.width - chips.spacing : chips.width

                    width: rest < 96 ? chips.width : rest
                    height: 24
                    leftPadding: 4
                    rightPadding: 0
                    framed: false
                    focus: true
                    text: editor.form.tagInput
                    hint: Wording.words("Add a tag")
                    Accessible.name: editor.name
                    Accessible.description: hint

                    onTextEdited: editor.form.tagInput = text
                    // With nothing typed, Enter is for the form.
                    Keys.onReturnPressed: event => editor.enter(event)
                    Keys.onEnterPressed: event => editor.enter(event)
                    Keys.onTabPressed: event => {
                        event.accepted = event.modifiers === Qt.NoModifier && editor.form.tab();
                    }
                    Keys.onDownPressed: {
                        if (suggestions.count > 0)
                            suggestions.itemAt(0).forceActiveFocus(Qt.OtherFocusReason);
                    }
                }
            }
        }
        TagFlowLayout {
            width: parent.width
            visible: editor.activeFocus && suggestions.count > 0

            Repeater {
                id: suggestions
                model: editor.form.suggestions
                delegate: TagSuggestion {
                    required property string modelData
                    required property int index

                    tag: modelData
                    takenByTab: index === 0 && editor.form.completes
                    greatestWidth: column.width
                    onClicked: {
                        const owner = editor;
                        owner.enterInput();
                        owner.form.addSuggestion(tag);
                    }
                    Keys.onLeftPressed: suggestions.itemAt(Math.max(0, index - 1)).forceActiveFocus()
                    Keys.onRightPressed:
                        suggestions.itemAt(Math.min(suggestions.count - 1, index + 1)).forceActiveFocus()
                    Keys.onUpPressed: editor.enterInput()
                }
            }
        }
    }
}

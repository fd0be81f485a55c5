pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// One line to type into.
T.TextField {
    id: control

    property bool framed: true
    /// What to type here, while nothing is.
    property string hint

    /// A text too long to be seen whole says so, while nobody writes in it.
    readonly property bool shortened: !activeFocus && contentWidth > width - leftPadding - rightPadding

    implicitHeight: 38
    leftPadding: 12
    rightPadding: 12
    topPadding: 0
    bottomPadding: 0
    hoverEnabled: true
    opacity: enabled ? 1 : 0.4
    verticalAlignment: TextInput.AlignVCenter
    color: shortened ? "transparent" : Theme.ink
    font: Theme.fieldText
    selectionColor: Theme.selection
    selectedTextColor: Theme.ink
    selectByMouse: true
    Accessible.name: hint

    background: FieldGround {
        visible: control.framed
        focused: control.activeFocus
        hovered: control.hovered
    }
    cursorDelegate: Caret {
        shown: control.activeFocus && control.cursorVisible
        place: control.cursorPosition
    }

    PlainText {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.shortened
        text: control.text
        font: control.font
        Accessible.ignored: true
    }
    PlainText {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.length === 0 && control.preeditText.length === 0
        text: control.hint
        color: Theme.ink3
        font: control.font
        Accessible.ignored: true
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Some lines to type into. It grows with the text to its greatest height, then scrolls.
FocusScope {
    id: editor

    property alias text: area.text
    property int leastHeight: 76
    property int greatestHeight: 96
    property string name
    readonly property string hint: Wording.words("Why did this catch your eye?")

    implicitHeight: Math.min(Math.max(area.implicitHeight, leastHeight), greatestHeight)

    FieldGround {
        anchors.fill: parent
        focused: area.activeFocus
        hovered: area.hovered
    }
    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.margins: 1
        clip: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        contentWidth: width

        T.TextArea.flickable: T.TextArea {
            id: area

            implicitWidth: flickable.width
            implicitHeight: contentHeight + topPadding + bottomPadding + 2
            topPadding: 8
            bottomPadding: 8
            leftPadding: 11
            rightPadding: 11
            focus: true
            hoverEnabled: true
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            color: Theme.ink
            font: Theme.fieldText
            selectionColor: Theme.selection
            selectedTextColor: Theme.ink
            selectByMouse: true
            Accessible.name: editor.name
            Accessible.description: editor.hint

            Component.onCompleted: cursorPosition = length

            // A note holds no tabs: the key goes on to the next field.
            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            cursorDelegate: Caret {
                shown: area.activeFocus && area.cursorVisible
                place: area.cursorPosition
            }

            PlainText {
                x: area.leftPadding
                y: area.topPadding
                width: area.width - area.leftPadding - area.rightPadding
                visible: area.length === 0 && area.preeditText.length === 0
                text: editor.hint
                color: Theme.ink3
                font: area.font
                Accessible.ignored: true
            }
        }
        T.ScrollBar.vertical: ThinScrollBar {}
    }
}

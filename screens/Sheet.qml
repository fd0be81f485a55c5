pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A form over the window: a body that scrolls where the window is low, and buttons that stay.
// The form gives the focus to its first field by `first`; `buttons` stand at the right.
Overlay {
    id: sheet

    required property string title
    /// What has the keyboard when the sheet opens.
    property Item first: null
    property alias buttons: row.data
    property alias leftButtons: left.data
    default property alias body: column.data

    readonly property int side: 29
    readonly property int footHeight: 22 + 34 + 25
    readonly property bool scrolls: cardHeight > height - 32

    cardWidth: 480
    cardHeight: 27 + column.height + footHeight
    Accessible.role: Accessible.Dialog
    Accessible.name: sheet.title

    onShownChanged: {
        if (shown) {
            body.contentY = 0;
            if (first)
                sheet.enter(first);
        }
    }

    // Keeps what has the keyboard in sight.
    function reveal(item: Item) {
        const top = item.mapToItem(column, 0, 0).y - 24;
        const bottom = top + item.height + 36;
        if (top < body.contentY)
            body.contentY = Math.max(0, top);
        else if (bottom > body.contentY + body.height)
            body.contentY = Math.min(body.contentHeight - body.height, bottom - body.height);
    }

    Connections {
        target: sheet.Window.window
        enabled: sheet.shown && sheet.scrolls
        function onActiveFocusItemChanged() {
            const item = sheet.Window.activeFocusItem;
            for (let each = item; each; each = each.parent) {
                if (each === column) {
                    sheet.reveal(item);
                    return;
                }
            }
        }
    }
    Flickable {
        id: body

        y: 1
        width: parent.width
        height: parent.height - 1 - (sheet.scrolls ? 68 : sheet.footHeight)
        contentHeight: column.height + 26 + (sheet.scrolls ? 20 : 0)
        boundsBehavior: Flickable.StopAtBounds
        interactive: sheet.scrolls
        clip: sheet.scrolls

        Column {
            id: column
            x: sheet.side
            y: 26
            width: body.width - 2 * sheet.side
        }
        T.ScrollBar.vertical: ThinScrollBar {}
    }
    Rectangle {
        visible: sheet.scrolls
        anchors.bottom: foot.top
        anchors.bottomMargin: 16
        x: 1
        width: parent.width - 2
        height: 1
        color: Theme.line
    }
    Item {
        id: foot

        x: sheet.side
        width: parent.width - 2 * sheet.side
        height: 34
        anchors.bottom: parent.bottom
        anchors.bottomMargin: sheet.scrolls ? 17 : 25

        Row {
            id: left
            spacing: 8
        }
        Row {
            id: row
            anchors.right: parent.right
            spacing: 8
        }
    }
}

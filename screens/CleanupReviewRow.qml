pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One tab that waits to be closed, below the name of its site if it is the site's first.
Item {
    id: row

    required property int index
    required property string title
    required property string domain
    required property string browserName
    required property string address
    required property bool selected
    required property bool opensSite
    property bool keyboardHere: false

    signal toggled

    height: tab.y + tab.height

    PlainText {
        x: 12
        y: 4
        width: parent.width - 24
        height: 24
        visible: row.opensSite
        text: row.domain
        color: Theme.ink2
        font: Theme.smallButton
        Accessible.role: Accessible.Heading
    }
    TabSelectionRow {
        id: tab
        y: row.opensSite ? 28 : 0
        width: parent.width
        height: 46
        index: row.index
        title: row.title
        domain: row.domain
        address: row.address
        iconHint: ""
        detail: row.browserName
        selected: row.selected
        keyboardHere: row.keyboardHere
        onToggled: row.toggled()
    }
}

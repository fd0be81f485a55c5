import QtQuick
import Brinmoor

// Rows that belong together, with their name above and a word about them below.
Column {
    id: group

    property string label
    property string note
    default property alias rows: column.data

    width: parent ? parent.width : 0

    Item {
        width: 1
        height: group.label.length > 0 ? 24 : 20
    }
    SectionLabel {
        visible: group.label.length > 0
        x: 2
        text: group.label
        Accessible.role: Accessible.Heading
    }
    Item {
        visible: group.label.length > 0
        width: 1
        height: 8
    }
    Rectangle {
        width: parent.width
        height: column.height + 2
        radius: 14
        color: Theme.surface
        border.width: 1
        border.color: Theme.line

        Column {
            id: column
            x: 1
            y: 1
            width: parent.width - 2
        }
    }
    SettingsNote {
        visible: text.length > 0
        text: group.note
    }
}

import QtQuick
import Brinmoor

Pill {
    id: control

    required property int tab
    required property SettingsScreen screen
    /// Something on this tab wants to be read.
    property bool attention: false

    implicitHeight: 32
    selected: control.screen.tab === control.tab
    onClicked: control.screen.tab = control.tab

    Rectangle {
        visible: control.attention && !control.selected
        x: parent.width - 10
        y: 4
        width: 6
        height: 6
        radius: 3
        color: Theme.rust
    }
}

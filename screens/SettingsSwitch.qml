import QtQuick
import Brinmoor

// A setting that is on or off.
SettingsRow {
    id: row

    required property bool on

    signal changed(on: bool)

    ToggleSwitch {
        anchors.verticalCenter: parent.verticalCenter
        text: row.title
        checked: row.on
        Accessible.description: row.note
        onToggled: row.changed(checked)
    }
}

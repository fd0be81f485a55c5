import QtQuick
import Brinmoor

// An action with its shortcut.
SettingsRow {
    id: row

    required property ShortcutRecorder modelData

    title: modelData.action
    error: modelData.error
    leastHeight: 46
    space: 8

    Row {
        spacing: 6
        rightPadding: -6

        RecorderButton {
            recorder: row.modelData
        }
        IconButton {
            y: 1
            drawing: "actions/16/edit-reset"
            text: row.modelData.resetName
            onClicked: row.modelData.reset()
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import Brinmoor

// The keys of one menu. What belongs to a text (cut, copy, paste, select all) the text does itself.
Item {
    id: keys

    required property ShellMenu modelData

    readonly property list<string> own: ["Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"]

    Instantiator {
        model: keys.modelData.count
        delegate: Shortcut {
            required property int index

            readonly property string key: keys.modelData.keyAt(index)

            enabled: key.length > 0 && !keys.own.includes(key)
            sequences: [key]
            onActivated: keys.modelData.choose(index)
        }
    }
}

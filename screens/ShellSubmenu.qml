pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import Brinmoor

// One of the shell's menus. What can be chosen is what could be when it was last asked.
PopupMenu {
    id: submenu

    required property ShellMenu modelData

    property int asked: 0

    signal chose(from: ShellMenu, index: int)

    function ask(): void {
        ++asked;
    }

    title: modelData.title
    least: 220
    cascade: true
    overlap: -4

    Instantiator {
        model: submenu.modelData.count
        delegate: ShellEntry {
            required property int index

            line: submenu.modelData.isLine(index)
            text: submenu.modelData.titleAt(index)
            detail: submenu.modelData.keyAt(index)
            enabled: !line && (submenu.asked < 0 || submenu.modelData.isEnabledAt(index))
            onTriggered: submenu.chose(submenu.modelData, index)
        }
        onObjectAdded: (index, object) => submenu.insertItem(index, object as ShellEntry)
        onObjectRemoved: (index, object) => submenu.removeItem(object as ShellEntry)
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import Brinmoor

// One of the shell's menus. What can be chosen is asked anew each time it opens.
PopupMenu {
    id: submenu

    required property ShellMenu modelData

    property int openings: 0

    signal chose(from: ShellMenu, index: int)

    title: modelData.title
    least: 220
    cascade: true
    overlap: -4
    onAboutToShow: ++openings

    Instantiator {
        model: submenu.modelData.count
        delegate: ShellEntry {
            required property int index

            line: submenu.modelData.isLine(index)
            text: submenu.modelData.titleAt(index)
            detail: submenu.modelData.keyAt(index)
            enabled: !line && (submenu.openings < 0 || submenu.modelData.isEnabledAt(index))
            onTriggered: submenu.chose(submenu.modelData, index)
        }
        onObjectAdded: (index, object) => submenu.insertItem(index, object as ShellEntry)
        onObjectRemoved: (index, object) => submenu.removeItem(object as ShellEntry)
    }
}

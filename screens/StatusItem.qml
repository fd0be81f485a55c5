pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import Qt.labs.platform as Platform
import Brinmoor

// The icon among the desktop's status icons, with its menu.
Platform.SystemTrayIcon {
    id: item

    required property ShellMenu entries
    required property url drawing

    property int openings: 0

    visible: true
    tooltip: "Brinmoor"
    icon.name: "dialog-layers"
    icon.source: drawing
    icon.mask: true
    onActivated: reason => {
        if (reason === Platform.SystemTrayIcon.Trigger)
            item.entries.choose(0);
    }

    menu: Platform.Menu {
        id: menu

        onAboutToShow: ++item.openings

        readonly property Instantiator made: Instantiator {
            model: item.entries.count
            delegate: Platform.MenuItem {
                required property int index

                separator: item.entries.isLine(index)
                text: item.entries.titleAt(index)
                enabled: item.openings < 0 || item.entries.isEnabledAt(index)
                onTriggered: item.entries.choose(index)
            }
            onObjectAdded: (index, object) => menu.insertItem(index, object)
            onObjectRemoved: (index, object) => menu.removeItem(object)
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// The library window: the rail and the section beside it.
Rectangle {
    id: root

    required property LibraryScreen screen

    color: Theme.paper

    Shortcut {
        sequences: ["Ctrl+W"]
        onActivated: root.Window.window.close()
    }
    Shortcut {
        sequences: ["Ctrl+Q"]
        onActivated: Qt.quit()
    }

    Rail {
        id: rail
        height: parent.height
    }
    LibraryView {
        anchors.left: rail.right
        anchors.right: parent.right
        height: parent.height
        screen: root.screen
        enabled: !alert.visible
        focus: true
    }
    ErrorAlert {
        id: alert
        anchors.fill: parent
        message: root.screen.error
        onDismissed: root.screen.dismissError()
    }
}

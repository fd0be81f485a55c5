import QtQuick
import Brinmoor

// The links by day, newest first, or those that a search finds.
FocusScope {
    id: view

    required property LibraryScreen screen

    /// Something stands above the window's section and has the keyboard.
    readonly property bool covered: (parent as Section)?.covered ?? false

    function focusSearch() {
        if (!covered)
            header.searchField.enter();
    }

    Connections {
        target: view.screen
        function onSearchFocusWanted() {
            view.focusSearch();
        }
        function onListRestarted() {
            list.restart();
        }
    }
    LibraryHeader {
        id: header

        // Its suggestions hang over the list.
        z: 1
        x: Theme.columnLeft(view.width)
        width: Theme.columnWidth(view.width)
        screen: view.screen
        // From wherever a click has left the keyboard.
        Keys.onDownPressed: list.forceActiveFocus(Qt.TabFocusReason)

        Connections {
            target: header.searchField
            function onLeftDownwards() {
                list.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }
    LinkListView {
        id: list

        anchors.top: header.bottom
        anchors.topMargin: 6
        anchors.bottom: footer.top
        width: parent.width
        focus: true
        screen: view.screen
        section.delegate: DayHeading {}
        Keys.onEscapePressed: {
            if (view.screen.search.query.length > 0)
                view.screen.search.query = "";
        }
    }
    EmptyState {
        visible: view.screen.links.empty
        anchors.fill: list
        kind: view.screen.emptyState
        keys: view.screen.shortcutLabel
    }
    UndoBar {
        x: Math.round((parent.width - width) / 2)
        anchors.bottom: footer.top
        anchors.bottomMargin: 14
        message: view.screen.undoMessage
        onUndone: view.screen.undoArchive()
        onDismissed: view.screen.dismissUndo()
    }
    LibraryFooter {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        screen: view.screen
    }
}

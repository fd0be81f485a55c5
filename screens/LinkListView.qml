pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The links under their headings. One stop of the keyboard: arrows move, Enter opens, Space edits,
// Delete deletes, and the menu key opens the menu of a link.
ListView {
    id: list

    required property LibraryScreen screen

    /// The keyboard got here, or moved here, by keys.
    property bool byKeyboard: false

    readonly property SwipeableLink currentLink: currentItem as SwipeableLink
    readonly property LinkCommands commands: screen.commands

    function restart() {
        currentIndex = -1;
        positionViewAtBeginning();
    }
    function arrive() {
        byKeyboard = true;
        if (currentIndex < 0 && count > 0)
            currentIndex = Math.max(0, indexAt(width / 2, contentY + 50));
    }
    function showMenu(link: SwipeableLink, x: real, y: real) {
        currentIndex = link.index;
        menu.show(link, x, y);
    }

    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    highlightMoveVelocity: -1
    keyNavigationEnabled: true
    spacing: 1
    cacheBuffer: 200
    reuseItems: true
    bottomMargin: 12
    currentIndex: -1
    model: screen.links
    section.property: "day"
    Accessible.role: Accessible.List
    Accessible.name: Wording.words("Library")

    delegate: SwipeableLink {
        x: Theme.columnLeft(list.width) - 12
        width: Theme.columnWidth(list.width) + 24
        screen: list.screen
        held: menu.visible && menu.linkId === linkId
        current: ListView.isCurrentItem && list.activeFocus && list.byKeyboard
        ringed: current && activeFocus && list.Window.activeFocusItem === this
        onPressedOn: {
            list.byKeyboard = false;
            list.currentIndex = index;
            list.forceActiveFocus(Qt.MouseFocusReason);
        }
        onMenuWanted: place => list.showMenu(this, place.x, place.y)
    }

    Keys.onPressed: event => {
        list.byKeyboard = true;
        const link = list.currentLink;
        const plain = event.modifiers === Qt.NoModifier || event.modifiers === Qt.KeypadModifier;
        event.accepted = true;
        if (event.key === Qt.Key_Home && plain)
            list.currentIndex = list.count > 0 ? 0 : -1;
        else if (event.key === Qt.Key_End && plain)
            list.currentIndex = list.count - 1;
        else if (event.key === Qt.Key_PageDown || event.key === Qt.Key_PageUp)
            list.turnPage(event.key === Qt.Key_PageDown ? 1 : -1);
        else if (!link)
            event.accepted = false;
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && plain)
            list.commands.open(link.linkId);
        else if ((event.key === Qt.Key_Space && plain)
                 || (event.key === Qt.Key_E && event.modifiers === Qt.ControlModifier))
            list.commands.edit(link.linkId);
        else if (event.key === Qt.Key_C && event.modifiers === Qt.ControlModifier)
            list.commands.copy(link.linkId);
        else if (event.key === Qt.Key_Delete && plain)
            list.commands.remove(link.linkId);
        else if ((event.key === Qt.Key_Menu && plain)
                 || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier))
            list.showMenu(link, 68, link.height / 2);
        else if (event.key === Qt.Key_Escape && link.pushed)
            link.close();
        else
            event.accepted = false;
    }

    function turnPage(by: int) {
        const step = Math.max(1, Math.floor(height / 63) - 1) * by;
        currentIndex = Math.max(0, Math.min(count - 1, currentIndex + step));
    }

    remove: Transition {
        enabled: list.screen.rowsMoved
        NumberAnimation { property: "opacity"; to: 0; duration: Theme.rowDuration; easing.type: Easing.OutQuad }
    }
    displaced: Transition {
        enabled: list.screen.rowsMoved
        NumberAnimation { property: "y"; duration: Theme.movement(Theme.rowDuration); easing.type: Easing.OutQuad }
    }

    ItemFocus {
        // The list hands the keyboard on to its current row.
        item: list.currentItem ?? list
        onArrivedByKeys: list.arrive()
    }
    RowMenu {
        id: menu
        commands: list.commands
    }
    T.ScrollBar.vertical: ThinScrollBar {}
}

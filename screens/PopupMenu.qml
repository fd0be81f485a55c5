pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A menu inside the window: MenuEntry, MenuHeading and MenuSeparator stand in it. Arrows move,
// Enter chooses, Esc closes. Taller than the window, it scrolls.
T.Menu {
    id: menu

    property int least: 180

    implicitWidth: Math.max(least, widest() + 2 * padding)
    implicitHeight: Math.min(implicitContentHeight + 2 * padding,
                             parent && parent.Window.window ? parent.Window.height - 24 : 1000)
    padding: 6
    margins: 12
    overlap: 0

    /// What had the keyboard before; it gets it back unless something else has taken it.
    property Item before: null
    onAboutToShow: before = parent ? parent.Window.activeFocusItem : null
    onClosed: {
        if (before && before.Window.activeFocusItem === before.Window.contentItem)
            before.forceActiveFocus(Qt.PopupFocusReason);
        before = null;
    }

    function widest(): real {
        let most = 0;
        for (let at = 0; at < menu.count; ++at)
            most = Math.max(most, menu.itemAt(at).implicitWidth);
        return most;
    }

    delegate: MenuEntry {}
    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: contentHeight > height
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationWraps: true
        T.ScrollBar.vertical: ThinScrollBar {}
    }
    background: MenuGround {}
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 120 }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 90 }
    }
}

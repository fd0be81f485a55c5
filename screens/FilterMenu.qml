pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Every tag and website to choose from. There may be thousands, so only those in sight are made.
T.Popup {
    id: menu

    required property LibrarySearch search

    implicitWidth: 235
    implicitHeight: Math.min(implicitContentHeight + 12,
                             parent && parent.Window.window ? parent.Window.height - 24 : 1000)
    padding: 6
    margins: 12
    focus: true
    modal: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    property var choices: []
    /// What had the keyboard before.
    property Item before: null

    onAboutToShow: {
        before = parent.Window.activeFocusItem;
        choices = search.refinements();
    }
    onClosed: {
        choices = [];
        if (before && before.Window.activeFocusItem === before.Window.contentItem)
            before.forceActiveFocus(Qt.PopupFocusReason);
        before = null;
    }

    background: MenuGround {}
    contentItem: FilterChoices {
        choices: menu.choices
        onChosen: choice => {
            menu.close();
            menu.search.refine(choice.kind, choice.value);
        }
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 120 }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: 90 }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// A card over the whole window that holds the keyboard until it is answered. Esc cancels.
FocusScope {
    id: overlay

    property bool shown: false
    /// Something stands above it and has the keyboard.
    property bool covered: false
    property int cardWidth: 412
    property real cardHeight: 0
    default property alias content: card.data

    signal cancelled

    anchors.fill: parent
    visible: opacity > 0
    enabled: shown
    opacity: shown ? 1 : 0

    onShownChanged: {
        if (shown && !covered)
            overlay.forceActiveFocus(Qt.PopupFocusReason);
    }

    // Gives the keyboard to an item of the card: now, or when nothing stands above it any more.
    function enter(item: Item) {
        if (covered)
            item.focus = true;
        else
            item.forceActiveFocus(Qt.PopupFocusReason);
    }

    Behavior on opacity {
        NumberAnimation { duration: overlay.shown ? 160 : 140 }
    }

    Keys.onEscapePressed: overlay.cancelled()
    // Tab goes round among the card's own controls.
    Keys.onTabPressed: card.step(true)
    Keys.onBacktabPressed: card.step(false)

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        // Nothing below is reached while the card stands.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
            hoverEnabled: true
            onWheel: wheel => wheel.accepted = true
        }
    }
    ShadowShape {
        anchors.fill: card
        anchors.leftMargin: -blur
        anchors.rightMargin: -blur
        anchors.topMargin: 18 - blur
        anchors.bottomMargin: -18 - blur
        radius: 18
        blur: 56
        color: Theme.shadow3
        scale: card.scale
    }
    Rectangle {
        id: card

        x: Math.round((overlay.width - width) / 2)
        y: Math.round((overlay.height - height) / 2)
        width: Math.min(overlay.cardWidth, overlay.width - 32)
        height: Math.min(overlay.cardHeight, overlay.height - 32)
        radius: 18
        color: Theme.raised
        border.width: 1
        border.color: Theme.edge
        scale: overlay.shown ? 1 : 0.98
        Behavior on scale {
            NumberAnimation { duration: Theme.movement(200); easing.type: Easing.OutCubic }
        }

        function holds(item: Item): bool {
            for (let each = item; each; each = each.parent) {
                if (each === card)
                    return true;
            }
            return false;
        }
        function step(forward: bool) {
            const now = overlay.Window.activeFocusItem;
            const from = now && card.holds(now) ? now : card;
            let next = from.nextItemInFocusChain(forward);
            // The chain runs through the whole window and comes round.
            for (let count = 0; next && !card.holds(next) && count < 10000; ++count)
                next = next.nextItemInFocusChain(forward);
            if (next)
                next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        }
    }
}

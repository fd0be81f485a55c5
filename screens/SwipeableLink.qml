pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// A row of the list: a link that can be pushed aside, with buttons behind it.
SwipeEvents {
    id: swipe

    required property int index
    required property string linkId
    required property string title
    required property string domain
    required property string address
    required property string iconHint
    required property list<string> tags
    required property string note
    required property bool isFavorite
    required property bool isArchived
    required property string importance
    required property LibraryScreen screen
    /// Whether this is the row that the keyboard is on, and whether that is to be seen.
    property bool current: false
    property bool ringed: false
    /// Its menu is open.
    property bool held: false

    readonly property bool pushed: offset !== 0

    signal pressedOn
    signal menuWanted(place: point)

    archived: isArchived
    height: card.implicitHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.description: note.length > 0 ? domain + ". " + note : domain
    Accessible.onPressAction: screen.commands.open(linkId)

    function closeUnlessSwiped() {
        if (swipe.screen.commands.swipedLink !== swipe.linkId)
            swipe.close();
    }

    onStarted: {
        settle.stop();
        screen.commands.beginSwipe(linkId);
        pressedOn();
    }
    onSettling: rest => {
        settle.to = rest;
        settle.restart();
    }
    onArchiveWanted: {
        close();
        screen.commands.toggleArchived(linkId);
    }
    onCopyWanted: {
        close();
        screen.commands.copy(linkId);
    }
    onTapped: {
        pressedOn();
        if (pushed)
            close();
        else
            screen.commands.open(linkId);
    }
    ListView.onPooled: {
        // Otherwise the list would hand the keyboard to a row that is no longer shown.
        focus = false;
        // Nor may a row stay in sight that was fading or moving: the list forgets to hide it.
        visible = false;
        settle.stop();
        swipe.reset();
    }
    ListView.onReused: {
        // The row of a link that left the list has faded out.
        opacity = 1;
        visible = true;
        // The rows below go where it ends.
        card.layOut();
    }

    NumberAnimation {
        id: settle
        target: swipe
        property: "offset"
        duration: Theme.movement(Theme.rowDuration)
        easing.type: Easing.OutQuad
    }
    Connections {
        target: swipe.screen.commands
        enabled: swipe.pushed
        function onSwipedLinkChanged() {
            swipe.closeUnlessSwiped();
        }
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: event => {
            swipe.pressedOn();
            swipe.menuWanted(event.position);
        }
    }
    Repeater {
        model: swipe.pushed ? 1 : 0
        delegate: SwipeButtons {
            row: swipe
            linkId: swipe.linkId
            isArchived: swipe.isArchived
            commands: swipe.screen.commands
        }
    }
    LinkRow {
        id: card

        x: swipe.offset
        width: swipe.width
        height: swipe.height
        linkId: swipe.linkId
        title: swipe.title
        domain: swipe.domain
        address: swipe.address
        iconHint: swipe.iconHint
        tags: swipe.tags
        note: swipe.note
        isFavorite: swipe.isFavorite
        isArchived: swipe.isArchived
        screen: swipe.screen
        current: swipe.current
        ringed: swipe.ringed
        held: swipe.held
        pushed: swipe.pushed
    }
}

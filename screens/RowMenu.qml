import QtQuick
import Brinmoor

// What can be done with one link.
PopupMenu {
    id: menu

    required property LinkCommands commands

    property string linkId
    property bool isArchived: false
    property string importance

    function show(row: SwipeableLink, x: real, y: real) {
        linkId = row.linkId;
        isArchived = row.isArchived;
        importance = row.importance;
        currentIndex = -1;
        popup(row, x, y);
    }

    least: 211

    MenuEntry {
        text: Wording.words("Open in browser")
        onTriggered: menu.commands.open(menu.linkId)
    }
    MenuEntry {
        text: Wording.words("Copy link")
        onTriggered: menu.commands.copy(menu.linkId)
    }
    MenuEntry {
        text: Wording.words("Edit title, note & tags…")
        onTriggered: menu.commands.edit(menu.linkId)
    }
    MenuEntry {
        text: Wording.words("Share by email…")
        onTriggered: menu.commands.share(menu.linkId)
    }
    MenuSeparator {}
    MenuEntry {
        text: Wording.words("Mark Important")
        visible: menu.importance !== "important"
        enabled: visible
        onTriggered: menu.commands.label(menu.linkId, "important")
    }
    MenuEntry {
        text: Wording.words("Mark Not needed")
        visible: menu.importance !== "notNeeded"
        enabled: visible
        onTriggered: menu.commands.label(menu.linkId, "notNeeded")
    }
    MenuEntry {
        text: Wording.words("Reset importance")
        visible: menu.importance.length > 0
        enabled: visible
        onTriggered: menu.commands.label(menu.linkId, "")
    }
    MenuSeparator {}
    MenuEntry {
        text: menu.isArchived ? Wording.words("Restore to library") : Wording.words("Archive")
        onTriggered: menu.commands.toggleArchived(menu.linkId)
    }
    MenuEntry {
        text: Wording.words("Delete")
        destructive: true
        onTriggered: menu.commands.remove(menu.linkId)
    }
}

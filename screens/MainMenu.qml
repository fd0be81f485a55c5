pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import Brinmoor

// The menus of the shell, opened by F10, and their keys, which work in the whole window.
Item {
    id: main

    required property ShellMenus menus

    readonly property bool opened: menu.opened

    function popup(x: real, y: real): void {
        // While what the entries act on still has the keyboard.
        for (let index = 0; index < submenus.count; ++index)
            (submenus.objectAt(index) as ShellSubmenu).ask();
        menu.x = x;
        menu.y = y;
        menu.open();
    }

    Shortcut {
        sequences: ["F10"]
        onActivated: main.popup(68, 16)
    }
    PopupMenu {
        id: menu
        least: 150
        // A choice acts on what had the keyboard before the menu.
        onClosed: main.act()
    }

    property ShellMenu chosenMenu: null
    property int chosen: -1

    function choose(from: ShellMenu, index: int): void {
        main.chosenMenu = from;
        main.chosen = index;
        // Menus that were closed by a choice of their submenu close a turn later.
        if (!menu.visible)
            main.act();
    }
    function act(): void {
        const from = main.chosenMenu;
        main.chosenMenu = null;
        if (from)
            from.choose(main.chosen);
    }

    Instantiator {
        id: submenus
        model: main.menus.all
        delegate: ShellSubmenu {
            onChose: (from, index) => main.choose(from, index)
        }
        onObjectAdded: (index, object) => menu.insertMenu(index, object as ShellSubmenu)
        onObjectRemoved: (index, object) => menu.removeMenu(object as ShellSubmenu)
    }
    Instantiator {
        model: main.menus.all
        delegate: ShellKeys {}
    }
}

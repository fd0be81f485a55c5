pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// All tags of the library, to be renamed, removed and looked up.
FocusScope {
    id: view

    required property TagsScreen screen

    readonly property real columnLeft: Theme.columnLeft(width)
    readonly property real columnWidth: Theme.columnWidth(width)

    /// Something stands above the window's section and has the keyboard.
    readonly property bool covered: (parent as Section)?.covered ?? false

    Accessible.role: Accessible.Pane
    Accessible.name: heading.text

    function openMenu() {
        menu.open();
    }
    function closeMenu() {
        menu.close();
    }

    PlainText {
        id: heading
        x: view.columnLeft
        y: 28
        width: view.columnWidth
        height: 34
        text: Wording.words("Keep your library easy to browse.")
        font: Theme.serif(28)
        Accessible.role: Accessible.Heading
    }
    PlainText {
        x: view.columnLeft
        y: 66
        width: view.columnWidth
        height: 20
        text: Wording.words("Rename or remove tags everywhere they appear. Select a tag to see matching links.")
        color: Theme.ink2
    }
    Row {
        x: view.columnLeft
        y: 111
        spacing: 8

        SectionLabel {
            height: 20
            text: Wording.words("TAGS")
        }
        PlainText {
            height: 20
            text: view.screen.count
            color: Theme.ink3
            font: Theme.sans(11, Font.Medium)
        }
    }
    T.Button {
        id: sort

        x: view.columnLeft + view.columnWidth + 8 - width
        y: 106
        width: implicitContentWidth + leftPadding + rightPadding
        height: 30
        padding: 0
        leftPadding: 10
        rightPadding: 9
        visible: view.screen.count > 0
        hoverEnabled: true
        text: Wording.words("Sort tags")
        Accessible.role: Accessible.ButtonMenu
        Accessible.description: view.screen.sortText
        onClicked: view.openMenu()
        Keys.onReturnPressed: view.openMenu()
        Keys.onEnterPressed: view.openMenu()
        Keys.onDownPressed: view.openMenu()

        background: Rectangle {
            radius: 10
            color: sort.down || menu.visible ? Theme.press
                                             : sort.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)
            Behavior on color {
                ColorAnimation { duration: Theme.groundDuration; easing.type: Easing.OutQuad }
            }
            FocusRing {
                visible: sort.visualFocus
                shapeRadius: parent.radius
                gap: 0
            }
        }
        contentItem: SortLabel {
            text: view.screen.sortText
        }

        HelpTip {
            visible: sort.hovered && !menu.visible
            text: sort.text
        }
        PopupMenu {
            id: menu
            x: parent.width - width - 8
            y: parent.height + 8
            onAboutToShow: menu.currentIndex = view.screen.byMostLinks ? 1 : 0

            MenuEntry {
                checkable: true
                autoExclusive: true
                checked: !view.screen.byMostLinks
                text: Wording.words("Alphabetical")
                onTriggered: view.screen.sortAlphabetically()
            }
            MenuEntry {
                checkable: true
                autoExclusive: true
                checked: view.screen.byMostLinks
                text: Wording.words("Most links")
                onTriggered: view.screen.sortByMostLinks()
            }
        }
    }
    ListView {
        id: list

        property bool byKeyboard: false
        property int keptIndex: 0
        property real keptPlace: 0

        x: view.columnLeft - 12
        y: 142
        width: view.columnWidth + 24
        height: parent.height - y
        bottomMargin: 16
        clip: true
        focus: true
        activeFocusOnTab: count > 0
        keyNavigationEnabled: view.screen.editingRow < 0
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: view.screen
        delegate: TagRow {
            width: ListView.view.width
            editing: index === view.screen.editingRow
            draft: view.screen.draft
            covered: view.covered
            current: list.activeFocus && list.byKeyboard && ListView.isCurrentItem
            onSelected: view.screen.select(index)
            onRenameWanted: view.screen.beginRename(index)
            onRemovalWanted: view.screen.askRemoval(index)
            onDrafted: draft => view.screen.draft = draft
            onSaved: view.screen.saveRename()
            onCancelled: view.screen.cancelRename()
        }
        Accessible.role: Accessible.List
        Accessible.name: heading.text

        onActiveFocusChanged: list.byKeyboard = activeFocus && list.byKeyboard
        Keys.onPressed: event => {
            list.byKeyboard = true;
            if (event.key === Qt.Key_F2)
                view.screen.beginRename(list.currentIndex);
            else if (event.key === Qt.Key_Delete)
                view.screen.askRemoval(list.currentIndex);
        }
        Keys.onReturnPressed: view.screen.select(list.currentIndex)
        Keys.onEnterPressed: view.screen.select(list.currentIndex)

        Connections {
            target: view.screen
            // Whoever renamed in the middle of the list stays there.
            function onModelAboutToBeReset() {
                list.keptIndex = list.currentIndex;
                list.keptPlace = list.contentY;
            }
            function onModelReset() {
                list.currentIndex = Math.max(0, Math.min(list.keptIndex, list.count - 1));
                list.contentY = Math.max(list.originY, Math.min(list.keptPlace,
                                         list.originY + list.contentHeight - list.height));
            }
            function onEditingChanged() {
                if (view.screen.editingRow >= 0)
                    list.currentIndex = view.screen.editingRow;
                else if (view.activeFocus)
                    list.forceActiveFocus(Qt.OtherFocusReason);
            }
        }

        T.ScrollBar.vertical: ThinScrollBar {}
    }
    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round((view.height - height) / 2) + 52
        visible: view.screen.count === 0

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 60
            height: 60
            radius: 20
            color: Theme.tint

            PlainText {
                anchors.fill: parent
                horizontalAlignment: Text.AlignHCenter
                text: "#"
                color: Theme.sage
                font: Theme.sans(28, Font.Light)
                Accessible.ignored: true
            }
        }
        Item {
            width: 1
            height: 18
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 28
            text: Wording.words("No tags yet")
            font: Theme.smallHeading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 8
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 22
            text: Wording.words("Add tags while saving or editing a link.")
            color: Theme.ink2
        }
    }
}

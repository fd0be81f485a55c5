pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The settings: a head that stays, three tabs, and the page about the browsers' connections.
FocusScope {
    id: view

    required property SettingsScreen screen

    readonly property real leading: Theme.columnLeft(view.width)
    readonly property real columnWidth: Theme.columnWidth(view.width)

    FocusScope {
        anchors.fill: parent
        visible: !view.screen.showsBrowserAccess
        enabled: visible
        focus: visible

        PageHeader {
            id: header
            x: view.leading
            width: view.columnWidth
            title: Wording.words("Make yourself at home.")
            line: Wording.words("A few small things, just how you like them.")
            onBack: view.screen.goBack()
        }
        Row {
            id: tabs

            x: view.leading - 10
            anchors.top: header.bottom
            anchors.topMargin: 12
            spacing: 4

            SettingsTab {
                tab: SettingsScreen.General
                screen: view.screen
                text: Wording.words("General")
                drawing: "actions/16/tools-wizard"
            }
            SettingsTab {
                tab: SettingsScreen.Capture
                screen: view.screen
                text: Wording.words("Capture")
                drawing: "actions/16/configure-shortcuts"
                attention: view.screen.hasShortcutErrors
            }
            SettingsTab {
                tab: SettingsScreen.Library
                screen: view.screen
                text: Wording.words("Library")
                drawing: "places/16/mail-folder-outbox"
            }
        }
        Flickable {
            id: body

            anchors.top: tabs.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            contentHeight: foot.y + foot.height + 26
            clip: true
            boundsBehavior: Flickable.StopAtBounds

            T.ScrollBar.vertical: ThinScrollBar {}

            // Keeps what has the keyboard in sight.
            function reveal(item: Item): void {
                const top = item.mapToItem(body.contentItem, 0, 0).y;
                if (top - 16 < body.contentY)
                    body.contentY = Math.max(0, top - 16);
                else if (top + item.height + 16 > body.contentY + body.height)
                    body.contentY = top + item.height + 16 - body.height;
            }

            Connections {
                target: view.Window.window
                enabled: view.visible
                function onActiveFocusItemChanged(): void {
                    const item = view.Window.activeFocusItem;
                    for (let each = item; each; each = each.parent) {
                        if (each === page) {
                            body.reveal(item);
                            return;
                        }
                    }
                }
            }
            Loader {
                id: page

                property int shownTab: -1
                property real slide: 0

                x: view.leading + slide
                width: view.columnWidth
                Component.onCompleted: page.show()

                function show(): void {
                    const names = ["SettingsGeneral", "SettingsCapture", "SettingsLibrary"];
                    page.setSource(Qt.resolvedUrl(names[view.screen.tab] + ".qml"),
                                   {screen: view.screen});
                    body.contentY = 0;
                    if (page.shownTab >= 0) {
                        page.slide = view.screen.tab > page.shownTab ? 16 : -16;
                        arrive.restart();
                    }
                    page.shownTab = view.screen.tab;
                }

                Connections {
                    target: view.screen
                    function onTabChanged(): void {
                        page.show();
                    }
                }
                ParallelAnimation {
                    id: arrive

                    NumberAnimation {
                        target: page
                        property: "slide"
                        from: Appearance.reducedMotion ? 0 : page.slide
                        to: 0
                        duration: Theme.movement(200)
                        easing.type: Easing.OutCubic
                    }
                    NumberAnimation {
                        target: page
                        property: "opacity"
                        from: 0
                        to: 1
                        duration: 200
                        easing.type: Easing.OutCubic
                    }
                }
            }
            Column {
                id: foot

                x: view.leading
                y: Math.max(page.height + 26, body.height - height - 26)
                width: view.columnWidth

                PlainText {
                    width: parent.width
                    height: 18
                    horizontalAlignment: Text.AlignHCenter
                    text: view.screen.version
                    color: Theme.ink2
                    font: Theme.small
                }
                PlainText {
                    width: parent.width
                    height: 18
                    horizontalAlignment: Text.AlignHCenter
                    text: Wording.words("A small app for a clearer mind.")
                    color: Theme.ink3
                    font: Theme.small
                }
            }
        }
    }
    Section {
        anchors.fill: parent
        view: "BrowserAccessView"
        screen: view.screen
        shown: view.screen.showsBrowserAccess
        covered: (view.parent as Section)?.covered ?? false
    }
}

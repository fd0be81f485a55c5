pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Which browsers let the program in, and how the others are let.
FocusScope {
    id: view

    required property SettingsScreen screen

    readonly property BrowserAccess access: view.screen.browserAccess
    readonly property real leading: Theme.columnLeft(view.width)
    readonly property real columnWidth: Theme.columnWidth(view.width)

    Keys.onEscapePressed: view.screen.leaveBrowserAccess()

    // Whoever comes back from a browser wants to know whether it worked.
    Connections {
        target: view.Window.window
        function onActiveChanged(): void {
            if (view.Window.window.active)
                view.access.check();
        }
    }
    PageHeader {
        id: header
        x: view.leading
        width: view.columnWidth
        title: Wording.words("Browser access")
        line: Wording.words("Brinmoor reads browser tabs only when you use a capture or tab tool.")
        backText: Wording.words("Settings")
        onBack: view.screen.leaveBrowserAccess()
    }
    SecondaryButton {
        id: again

        x: view.leading + view.columnWidth - width
        y: 70
        text: Wording.words("Check again")
        enabled: !view.access.checking
        onClicked: view.access.check()

        contentItem: ButtonLabel {
            inset: 15
            drawing: "actions/16/view-refresh"
            text: again.text
            font: again.font
            busy: view.access.checking
        }
    }
    Flickable {
        id: body

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !view.access.empty
        contentHeight: column.height + 26
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: column

            x: view.leading
            y: -2
            width: view.columnWidth

            SettingsGroup {
                note: Wording.words("Each browser needs the Brinmoor extension once. A browser that isn’t running connects by itself the next time you open it.")

                Repeater {
                    model: view.access
                    BrowserRow {
                        access: view.access
                    }
                }
            }
        }
    }
    Column {
        visible: view.access.empty
        anchors.centerIn: parent
        anchors.verticalCenterOffset: 40
        width: Math.min(view.width - 48, 420)

        Bubble {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 60
            height: 60
            radius: 20
            drawing: "actions/22/globe"
            drawingSide: 22
        }
        Item {
            width: 1
            height: 18
        }
        PlainText {
            width: parent.width
            height: 28
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("No browser found")
            font: Theme.smallHeading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 8
        }
        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("Install Chromium, Chrome, Brave, Vivaldi, Edge or Opera, then check again.")
            color: Theme.ink2
            wrapMode: Text.Wrap
            lineHeight: 22
            lineHeightMode: Text.FixedHeight
        }
    }
}

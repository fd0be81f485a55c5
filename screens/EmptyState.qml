pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What stands where the links will be.
Item {
    id: state

    required property int kind
    /// The keys that save a tab.
    required property string keys

    readonly property bool nothingFound: kind === LibraryScreen.NothingFound
    readonly property bool nothingArchived: kind === LibraryScreen.NothingArchived
    readonly property bool nothingSaved: kind === LibraryScreen.NothingSaved

    Column {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -18
        width: Math.min(parent.width - 48, 480)

        Bubble {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 60
            height: 60
            radius: 20
            drawing: state.nothingFound ? "actions/22/edit-find"
                                        : state.nothingArchived ? "places/22/folder-download"
                                                                : "places/22/mail-folder-inbox"
            drawingSide: state.nothingSaved ? 28 : 26
        }
        Item {
            width: 1
            height: 18
        }
        PlainText {
            width: parent.width
            height: 28
            horizontalAlignment: Text.AlignHCenter
            text: state.nothingFound ? Wording.words("No matching links.")
                                     : state.nothingArchived
                                       ? Wording.words("Nothing archived.")
                                       : Wording.words("A little room for good things.")
            font: Theme.smallHeading
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 8
        }
        PlainText {
            visible: !state.nothingSaved
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, 420)
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            lineHeight: 22
            lineHeightMode: Text.FixedHeight
            text: state.nothingFound
                  ? Wording.words("Try fewer words, another tag, or clear your filters.")
                  : Wording.words("Swipe left on a saved link to move it here.")
            color: Theme.ink2
        }
        Row {
            visible: state.nothingSaved
            anchors.horizontalCenter: parent.horizontalCenter
            height: 22
            spacing: 8

            PlainText {
                height: parent.height
                text: Wording.words("Open a browser tab and press")
                color: Theme.ink2
            }
            Keycap {
                y: 1
                keys: state.keys
            }
            PlainText {
                height: parent.height
                text: Wording.words("to save & close a tab")
                color: Theme.ink2
            }
        }
        Item {
            visible: state.nothingSaved
            width: 1
            height: 4
        }
        PlainText {
            visible: state.nothingSaved
            width: parent.width
            height: 22
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("Saved instantly. Right here when you need it.")
            color: Theme.ink3
            font: Theme.small
        }
    }
}

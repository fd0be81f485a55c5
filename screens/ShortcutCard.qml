pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// The keys that save a tab, as they lie on a keyboard.
Column {
    id: card

    required property var keys

    Accessible.role: Accessible.StaticText
    Accessible.name: keys.join("+") + ". " + action.text

    Row {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        // Many or long keys become smaller rather than leave the card.
        scale: Math.min(1, card.width / Math.max(1, width))
        spacing: 0

        Repeater {
            model: card.keys

            Row {
                id: key

                required property string modelData
                required property int index

                PlainText {
                    visible: key.index > 0
                    width: 26
                    height: 46
                    horizontalAlignment: Text.AlignHCenter
                    text: "+"
                    color: Theme.ink3
                    Accessible.ignored: true
                }
                Rectangle {
                    width: key.modelData.length === 1 ? 46
                                                      : Math.max(76, Math.ceil(label.implicitWidth) + 34)
                    height: 48
                    radius: 11
                    color: Theme.line

                    Rectangle {
                        width: parent.width
                        height: 46
                        radius: 11
                        color: Theme.raised
                        border.width: 1
                        border.color: Theme.field

                        PlainText {
                            id: label
                            anchors.fill: parent
                            horizontalAlignment: Text.AlignHCenter
                            text: key.modelData
                            font: Theme.sans(15, Font.DemiBold)
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
    Item {
        width: 1
        height: 20
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 8

        IconShape {
            y: 3
            width: 16
            height: 16
            name: "actions/16/configure-shortcuts"
            color: Theme.sage
        }
        PlainText {
            id: action
            height: 22
            text: Wording.words("Save current browser tab")
            font: Theme.sans(14, Font.DemiBold)
            Accessible.ignored: true
        }
    }
    PlainText {
        width: parent.width
        height: 22
        horizontalAlignment: Text.AlignHCenter
        text: Wording.words("Works from any app")
        color: Theme.ink3
        font: Theme.small
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What all users sent, for the one who runs the service.
Item {
    id: section

    required property OwnerUsage usage

    width: parent ? parent.width : 0
    height: column.height + 26

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.separator
    }
    Column {
        id: column

        x: 16
        y: 13
        width: parent.width - 32

        PlainText {
            visible: section.usage.hasReport
            width: parent.width
            height: 26
            verticalAlignment: Text.AlignTop
            text: section.usage.heading
            font: Theme.label
            Accessible.role: Accessible.Heading
        }
        Repeater {
            model: section.usage.titles

            Item {
                id: line

                required property string modelData
                required property int index

                width: column.width
                height: 22
                Accessible.role: Accessible.StaticText
                Accessible.name: title.text + ": " + count.text

                PlainText {
                    id: title
                    width: parent.width - 80
                    height: parent.height
                    text: line.modelData
                    color: Theme.ink2
                    Accessible.ignored: true
                }
                PlainText {
                    id: count
                    anchors.right: parent.right
                    height: parent.height
                    text: section.usage.counts[line.index] ?? ""
                    font: Theme.sans(13, Font.Medium)
                    Accessible.ignored: true
                }
            }
        }
        PlainText {
            visible: section.usage.hasReport
            width: parent.width
            topPadding: 6
            bottomPadding: 10
            text: section.usage.note
            color: Theme.ink3
            font: Theme.small
            wrapMode: Text.Wrap
            lineHeight: 17
            lineHeightMode: Text.FixedHeight
        }
        SecondaryButton {
            small: true
            text: section.usage.buttonTitle
            enabled: !section.usage.loading
            onClicked: section.usage.load()
        }
        PlainText {
            visible: text.length > 0
            width: parent.width
            topPadding: 8
            text: section.usage.message
            color: Theme.rust
            font: Theme.smallMedium
            wrapMode: Text.Wrap
        }
    }
}

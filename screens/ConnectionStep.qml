import QtQuick
import Brinmoor

// One thing to do in a browser, and what it takes along.
Item {
    id: step

    required property int number
    required property string words
    required property string copyable

    signal copied

    height: column.height

    Rectangle {
        y: -1
        width: 20
        height: 20
        radius: 10
        color: Theme.tint

        PlainText {
            anchors.fill: parent
            horizontalAlignment: Text.AlignHCenter
            text: step.number
            color: Theme.sage
            font: Theme.sans(11, Font.DemiBold)
        }
    }
    Column {
        id: column

        x: 32
        width: parent.width - x
        spacing: 4

        Text {
            width: parent.width
            text: step.words
            color: Theme.ink
            font: Theme.body
            textFormat: Text.StyledText
            wrapMode: Text.Wrap
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
        }
        Rectangle {
            visible: step.copyable.length > 0
            width: Math.min(parent.width, Math.ceil(path.implicitWidth) + 46)
            height: 26
            radius: 6
            color: Theme.raised
            border.width: 1
            border.color: Theme.field

            PlainText {
                id: path
                x: 10
                width: parent.width - 46
                height: parent.height
                text: step.copyable
                font: Theme.smallMedium
                elide: Text.ElideMiddle
            }
            IconButton {
                anchors.right: parent.right
                anchors.rightMargin: 1
                y: 1
                side: 24
                drawing: "actions/16/edit-copy"
                text: Wording.words("Copy ") + step.copyable
                onClicked: step.copied()
            }
        }
    }
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One line of the filter menu: a choice, a heading over some, or a rule between them.
Item {
    id: choice

    required property var modelData
    required property int index
    required property bool highlighted

    readonly property bool isHeading: modelData.kind === "heading"
    readonly property bool isLine: modelData.kind === "line"
    readonly property bool isChoice: !isHeading && !isLine

    signal chosen
    signal entered

    implicitHeight: isLine ? 11 : 30
    Accessible.role: isHeading ? Accessible.Heading : isLine ? Accessible.Separator
                                                            : Accessible.CheckBox
    Accessible.name: modelData.text
    Accessible.description: tip.text
    Accessible.checkable: isChoice
    Accessible.checked: modelData.checked
    Accessible.onPressAction: {
        if (choice.isChoice)
            choice.chosen();
    }

    HoverHandler {
        id: pointer
        enabled: choice.isChoice
        onHoveredChanged: {
            if (hovered)
                choice.entered();
        }
    }
    TapHandler {
        id: tap
        enabled: choice.isChoice
        onTapped: choice.chosen()
    }
    Rectangle {
        visible: choice.isLine
        x: 10
        y: 5
        width: parent.width - 20
        height: 1
        color: Theme.separator
    }
    Rectangle {
        visible: choice.isChoice
        anchors.fill: parent
        radius: 9
        color: tap.pressed ? Theme.press
                           : choice.highlighted || pointer.hovered ? Theme.hover : "transparent"
    }
    PlainText {
        visible: !choice.isLine
        x: 10
        width: parent.width - 20 - (choice.isChoice ? 28 : 0)
        height: parent.height
        text: choice.modelData.text
        color: choice.isHeading ? Theme.ink3 : Theme.ink
        font: choice.isHeading ? Theme.menuHeading : Theme.body
        Accessible.ignored: true
    }
    IconShape {
        visible: choice.modelData.checked
        x: parent.width - 10 - width
        y: 7
        width: 16
        height: 16
        name: "actions/16/checkmark"
        color: Theme.sage
    }
    HelpTip {
        id: tip
        visible: pointer.hovered && text.length > 0
        text: choice.modelData.kind === "note" ? Wording.words("Show links with notes") : ""
    }
}

pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Templates as T
import Brinmoor

// A tag of a link; pressing it finds the links with the same one.
T.AbstractButton {
    id: control

    required property string tag
    property int greatestWidth: 240

    implicitWidth: Math.min(Math.ceil(implicitContentWidth) + 12, greatestWidth)
    implicitHeight: 20
    padding: 0
    leftPadding: 6
    rightPadding: 6
    hoverEnabled: true
    text: Wording.words("Find links tagged ") + tag
    Accessible.role: Accessible.Button

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 6
        color: control.hovered || control.down ? Theme.tint2 : Theme.fill
        FocusRing {
            visible: control.visualFocus
            shapeRadius: parent.radius
            gap: 0
        }
    }
    contentItem: PlainText {
        text: "#" + control.tag
        color: control.hovered || control.down ? Theme.sage : Theme.ink2
        font: Theme.tag
        Accessible.ignored: true
    }
    // Made for the one that is pointed at: a list has hundreds.
    Instantiator {
        active: control.hovered
        delegate: HelpTip {
            parent: control
            visible: true
            text: control.text
        }
    }
}

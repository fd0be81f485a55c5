pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import Brinmoor

// A button at the end of a row. The keyboard reaches it from the row that it is on.
IconButton {
    id: control

    required property bool reachable

    focusPolicy: reachable ? Qt.StrongFocus : Qt.NoFocus

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

import QtQuick
import Brinmoor

// The text cursor. It stands still while its place changes, so that it is never lost in typing.
Rectangle {
    id: caret

    required property bool shown
    required property int place

    property bool lit: true

    width: 2
    color: Theme.sage
    visible: shown && lit

    onPlaceChanged: {
        caret.lit = true;
        blink.restart();
    }

    Timer {
        id: blink
        interval: Math.max(1, Appearance.caretPeriod / 2)
        running: caret.shown && Appearance.caretPeriod > 1
        repeat: true
        onTriggered: caret.lit = !caret.lit
        onRunningChanged: caret.lit = true
    }
}

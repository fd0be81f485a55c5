import QtQuick
import Brinmoor

// The text cursor. It stands still while its place changes, so that it is never lost in typing.
Item {
    id: caret

    required property bool shown
    required property int place

    property bool lit: true

    // A text gives its caret a width of its own.
    Rectangle {
        visible: caret.shown && caret.lit
        // On whole pixels, wherever the letters end.
        x: Math.round(caret.x) - caret.x
        width: 2
        height: parent.height
        color: Theme.sage
    }

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

import QtQuick

// A section of the window, or a sheet above it: its view is made when it is first shown, and
// dropped when it is left, unless it is to be kept.
Loader {
    id: section

    /// The name of the view's file, which takes `screen` as its property.
    required property string view
    required property QtObject screen
    property bool shown: false
    property bool kept: false
    /// Something stands above the section and has the keyboard.
    property bool covered: false

    readonly property bool wanted: shown || (kept && item !== null)

    visible: shown
    enabled: shown
    focus: shown

    Component.onCompleted: section.follow()
    onWantedChanged: section.follow()
    onShownChanged: {
        if (shown && !covered)
            section.forceActiveFocus(Qt.OtherFocusReason);
    }
    onLoaded: item.focus = true

    function follow() {
        if (!section.wanted)
            section.source = "";
        else if (!section.item)
            section.setSource(Qt.resolvedUrl(section.view + ".qml"), {screen: section.screen});
    }
}

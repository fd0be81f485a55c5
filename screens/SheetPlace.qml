import QtQuick

// Where a sheet stands above the window. It is made when it is first shown, and kept.
Loader {
    id: place

    /// The name of the sheet's file, which takes `screen` as its property.
    required property string view
    required property QtObject screen
    property bool shown: false
    /// Something stands above the sheet and has the keyboard.
    property bool covered: false

    anchors.fill: parent
    focus: shown && !covered

    Component.onCompleted: place.follow()
    onShownChanged: place.follow()
    onLoaded: item.focus = true

    Binding {
        target: place.item
        property: "covered"
        value: place.covered
        when: place.item !== null
    }

    function follow() {
        if (place.shown && !place.item)
            place.setSource(Qt.resolvedUrl(place.view + ".qml"), {screen: place.screen, covered: place.covered});
    }
}

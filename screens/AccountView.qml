pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// Signing in by e-mail, and who is signed in.
FocusScope {
    id: view

    required property AccountScreen screen

    Component.onCompleted: view.screen.appear()

    Keys.onEscapePressed: {
        if (view.screen.canCancel && !view.screen.hasLogin)
            view.screen.cancel();
    }

    Flickable {
        id: body

        anchors.fill: parent
        contentHeight: Math.max(height, (shown.item?.height ?? 0) + 132)
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ThinScrollBar {}

        Loader {
            id: shown

            x: Math.round((body.width - width) / 2)
            y: Math.max(66, Math.round((body.contentHeight - (item?.height ?? 0)) / 2) - 9)
            width: Math.min(380, body.width - 48)
            focus: true

            readonly property string form: view.screen.hasLogin ? "AccountSignedIn"
                                                                : "AccountSignIn"

            Component.onCompleted: shown.show()
            onFormChanged: shown.show()
            onLoaded: item.focus = true

            function show(): void {
                shown.setSource(Qt.resolvedUrl(shown.form + ".qml"), {screen: view.screen});
            }
        }
        BackButton {
            x: Theme.columnLeft(view.width) - 8
            y: 16
            text: Wording.words("Library")
            onClicked: view.screen.goBack()
        }
    }
}

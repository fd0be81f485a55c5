pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// One passing notice on a card of its own.
Item {
    id: view

    required property NoticeContent notice
    /// Room around the card for its shadow; 0 where the desktop can't show through a window.
    required property int shadowSpread

    readonly property int shadowDrop: shadowSpread > 0 ? 8 : 0
    property bool leaving: false

    signal gone

    width: 380 + 2 * shadowSpread
    height: card.height + 2 * shadowSpread
    Accessible.role: Accessible.AlertMessage
    Accessible.name: notice.title + ". " + notice.message

    function enter() {
        leaving = false;
        entering.start();
    }
    function leave() {
        leaving = true;
        entering.stop();
        fading.start();
    }

    ParallelAnimation {
        id: entering
        NumberAnimation {
            target: content
            property: "opacity"
            from: view.shadowSpread > 0 ? 0 : 1
            to: 1
            duration: 220
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            target: content
            property: "x"
            from: view.shadowSpread > 0 && !Appearance.reducedMotion ? 16 : 0
            to: 0
            duration: Theme.movement(220)
            easing.type: Easing.OutCubic
        }
    }
    NumberAnimation {
        id: fading
        target: content
        property: "opacity"
        to: view.shadowSpread > 0 ? 0 : 1
        duration: view.shadowSpread > 0 ? 160 : 0
        onFinished: view.gone()
    }

    Item {
        id: content

        width: parent.width
        height: parent.height

        ShadowShape {
            visible: view.shadowSpread > 0
            anchors.fill: card
            anchors.leftMargin: -blur
            anchors.rightMargin: -blur
            anchors.topMargin: view.shadowDrop - blur
            anchors.bottomMargin: -view.shadowDrop - blur
            radius: 16
            blur: 24
            color: Theme.shadow2
        }
        Rectangle {
            id: card

            x: view.shadowSpread
            y: view.shadowSpread
            width: 380
            height: texts.height + 30
            radius: 16
            color: Theme.raised
            border.width: 1
            border.color: Theme.edge

            Rectangle {
                x: 15
                y: 15
                width: 32
                height: 32
                radius: 10
                color: view.notice.isError ? Theme.rustTint : Theme.tint

                IconShape {
                    visible: !view.notice.isError
                    anchors.centerIn: parent
                    width: 22
                    height: 22
                    name: "actions/22/checkmark"
                    color: Theme.sage
                }
                PlainText {
                    visible: view.notice.isError
                    anchors.fill: parent
                    horizontalAlignment: Text.AlignHCenter
                    text: "!"
                    color: Theme.rust
                    font: Theme.sans(17, Font.Bold)
                    Accessible.ignored: true
                }
            }
            Column {
                id: texts

                x: 59
                y: 15
                width: 274

                PlainText {
                    width: parent.width
                    height: 18
                    text: view.notice.title
                    font: Theme.toastTitle
                    Accessible.ignored: true
                }
                Item {
                    width: 1
                    height: 2
                }
                PlainText {
                    width: parent.width
                    text: view.notice.message
                    color: Theme.ink2
                    wrapMode: Text.Wrap
                    maximumLineCount: 6
                    lineHeight: 18
                    lineHeightMode: Text.FixedHeight
                    Accessible.ignored: true
                }
                Row {
                    topPadding: 10
                    spacing: 8
                    visible: view.notice.opensAutomationSettings || view.notice.offersClipboard

                    SecondaryButton {
                        visible: view.notice.opensAutomationSettings
                        small: true
                        text: Wording.words("Open Automation Settings ↗")
                        onClicked: view.notice.openSettings()
                    }
                    PrimaryButton {
                        visible: view.notice.offersClipboard
                        small: true
                        text: Wording.words("Save")
                        onClicked: view.notice.saveClipboard(false)
                    }
                    SecondaryButton {
                        visible: view.notice.offersClipboard
                        small: true
                        text: Wording.words("Add note")
                        onClicked: view.notice.saveClipboard(true)
                    }
                }
            }
            IconButton {
                anchors.top: parent.top
                anchors.topMargin: 12
                anchors.right: parent.right
                anchors.rightMargin: 12
                drawing: "actions/16/edit-delete-remove"
                text: Wording.words("Dismiss notification")
                onClicked: view.notice.dismiss()
            }
        }
    }
}

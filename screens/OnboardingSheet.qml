pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// The short tour: three pages with a picture each.
Overlay {
    id: sheet

    required property OnboardingScreen screen

    /// In a low window the picture gives way.
    readonly property bool low: sheet.height < 560
    readonly property int pictureHeight: (sheet.screen.step === 0 ? 228 : 256) - (low ? 56 : 0)

    shown: sheet.screen.shown
    cardWidth: 480
    cardHeight: sheet.low ? 460 : 516
    Accessible.role: Accessible.Dialog
    Accessible.name: sheet.screen.heading

    Component.onCompleted: {
        if (shown)
            sheet.enter(goOn);
    }
    onShownChanged: {
        if (shown)
            sheet.enter(goOn);
    }
    onCancelled: sheet.screen.dismiss()
    Keys.onLeftPressed: sheet.screen.goBack()

    Item {
        id: page

        x: 29
        width: parent.width - 58
        height: parent.height

        Row {
            y: 33
            spacing: 4

            Repeater {
                model: sheet.screen.totalSteps

                Rectangle {
                    id: dash

                    required property int index

                    width: dash.index === sheet.screen.step ? 22 : 10
                    height: 4
                    radius: 2
                    color: dash.index === sheet.screen.step ? Theme.sage : Theme.track
                    Behavior on width {
                        NumberAnimation {
                            duration: Theme.movement(Theme.groundDuration)
                            easing.type: Easing.OutQuad
                        }
                    }
                }
            }
        }
        PlainText {
            x: 62
            y: 27
            height: 16
            text: sheet.screen.progress
            color: Theme.ink2
            font: Theme.small
        }
        IconButton {
            x: parent.width - width + 8
            y: 21
            drawing: "actions/16/edit-delete-remove"
            text: Wording.words("Close onboarding")
            onClicked: sheet.screen.dismiss()
        }
        PlainText {
            y: 61
            width: parent.width
            height: 34
            text: sheet.screen.heading
            font: Theme.display
            Accessible.role: Accessible.Heading
        }
        PlainText {
            y: 101
            width: parent.width
            text: sheet.screen.text
            color: Theme.ink2
            font: Theme.fieldText
            wrapMode: Text.Wrap
            lineHeight: 22
            lineHeightMode: Text.FixedHeight
        }
        Rectangle {
            y: 165
            width: parent.width
            height: sheet.pictureHeight
            radius: 16
            color: Theme.paper
            border.width: 1
            border.color: Theme.line

            ShortcutCard {
                visible: sheet.screen.step === 0
                anchors.centerIn: parent
                anchors.verticalCenterOffset: 1
                width: parent.width - 48
                keys: sheet.screen.shortcut
            }
            LibraryPreviewCard {
                visible: sheet.screen.step === 1
                anchors.centerIn: parent
                anchors.verticalCenterOffset: -4
                width: parent.width - 48
                low: sheet.low
            }
            TidyPreviewCard {
                visible: sheet.screen.step === 2
                anchors.centerIn: parent
                width: parent.width - 48
                low: sheet.low
            }
        }
        PlainText {
            visible: sheet.screen.step === 0
            y: 165 + sheet.pictureHeight + 10
            width: parent.width
            height: 17
            horizontalAlignment: Text.AlignHCenter
            text: Wording.words("You can change this anytime in Settings.")
            color: Theme.ink3
            font: Theme.small
        }
        BaseButton {
            id: back

            visible: sheet.screen.step > 0
            y: parent.height - 59
            width: implicitWidth - 5
            fill: Theme.fill
            text: Wording.words("Back")
            onClicked: {
                sheet.screen.goBack();
                sheet.enter(goOn);
            }

            contentItem: ButtonLabel {
                inset: 9
                drawing: "actions/16/go-previous"
                text: back.text
                font: back.font
            }
        }
        PrimaryButton {
            id: goOn
            x: parent.width - width
            y: parent.height - 59
            text: sheet.screen.continueText
            onClicked: sheet.screen.goOn()
        }
    }
}

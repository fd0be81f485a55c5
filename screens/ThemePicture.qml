pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// The library in small, in a theme's own colours.
Rectangle {
    id: picture

    required property bool forDark

    readonly property real unit: width / 284

    radius: 10
    color: colours.paper
    border.width: 1
    border.color: picture.forDark ? colours.paper : colours.line

    ThemeColours {
        id: colours
        dark: picture.forDark
    }

    component Stroke: Rectangle {
        property real strong: 1
        height: Math.max(3, Math.round(5 * picture.unit))
        radius: height / 2
        color: Qt.alpha(colours.ink, strong)
    }

    Rectangle {
        width: Math.round(31 * picture.unit)
        height: parent.height
        radius: parent.radius
        color: colours.sidebar

        Rectangle {
            anchors.right: parent.right
            width: Math.round(12 * picture.unit)
            height: parent.height
            color: parent.color
        }
        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            color: colours.line
        }
        Rectangle {
            x: Math.round(8 * picture.unit)
            y: Math.round(10 * picture.unit)
            width: Math.round(14 * picture.unit)
            height: width
            radius: 4
            color: Qt.alpha(colours.sage, 0.28)
            Stroke {
                anchors.centerIn: parent
                width: Math.round(7 * picture.unit)
                color: colours.sage
            }
        }
        Stroke {
            x: Math.round(11 * picture.unit)
            y: Math.round(33 * picture.unit)
            width: Math.round(8 * picture.unit)
            height: 3
            color: colours.muted
        }
        Stroke {
            x: Math.round(11 * picture.unit)
            y: Math.round(49 * picture.unit)
            width: Math.round(8 * picture.unit)
            height: 3
            color: colours.muted
        }
    }
    Stroke {
        x: Math.round(46 * picture.unit)
        y: Math.round(11 * picture.unit)
        width: Math.round(52 * picture.unit)
        height: Math.round(6 * picture.unit)
        strong: 0.9
    }
    Rectangle {
        x: Math.round(46 * picture.unit)
        y: Math.round(27 * picture.unit)
        width: Math.round(220 * picture.unit)
        height: Math.round(17 * picture.unit)
        radius: 5
        color: colours.surface
        border.width: 1
        border.color: colours.line
        Stroke {
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            width: Math.round(46 * picture.unit)
            height: 3
            strong: 0.4
        }
    }
    Repeater {
        model: [{top: 55, long: 96, short: 54}, {top: 79, long: 124, short: 40},
            {top: 103, long: 80, short: 62}]

        Item {
            id: line

            required property var modelData
            required property int index

            x: Math.round(46 * picture.unit)
            y: Math.round(modelData.top * picture.unit)

            Rectangle {
                width: Math.round(16 * picture.unit)
                height: width
                radius: 4
                color: line.index === 0 ? colours.sage : Qt.alpha(colours.sage, 0.24)
            }
            Stroke {
                x: Math.round(24 * picture.unit)
                y: Math.round(2 * picture.unit)
                width: Math.round(line.modelData.long * picture.unit)
                strong: 0.8
            }
            Stroke {
                x: Math.round(24 * picture.unit)
                y: Math.round(11 * picture.unit)
                width: Math.round(line.modelData.short * picture.unit)
                height: 3
                strong: 0.42
            }
        }
    }
}

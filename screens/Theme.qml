pragma Singleton

import QtQuick
import Brinmoor

// Every colour, type style and measure that the screens share. The base colours follow the theme
// together, in one movement; what is derived from them follows by itself.
QtObject {
    id: theme

    readonly property bool dark: Appearance.dark
    readonly property int themeDuration: 160

    property color paper: Appearance.paper
    property color sidebar: Appearance.sidebar
    property color surface: Appearance.surface
    property color raised: Appearance.raised
    property color ink: Appearance.ink
    property color sage: Appearance.sage
    property color muted: Appearance.muted
    property color line: Appearance.line
    property color onAccent: Appearance.onAccent
    property color rust: Appearance.rust

    Behavior on paper { ColorAnimation { duration: theme.themeDuration } }
    Behavior on sidebar { ColorAnimation { duration: theme.themeDuration } }
    Behavior on surface { ColorAnimation { duration: theme.themeDuration } }
    Behavior on raised { ColorAnimation { duration: theme.themeDuration } }
    Behavior on ink { ColorAnimation { duration: theme.themeDuration } }
    Behavior on sage { ColorAnimation { duration: theme.themeDuration } }
    Behavior on muted { ColorAnimation { duration: theme.themeDuration } }
    Behavior on line { ColorAnimation { duration: theme.themeDuration } }
    Behavior on onAccent { ColorAnimation { duration: theme.themeDuration } }
    Behavior on rust { ColorAnimation { duration: theme.themeDuration } }

    readonly property color ink2: Qt.alpha(ink, dark ? 0.74 : 0.78)
    readonly property color ink3: Qt.alpha(ink, dark ? 0.60 : 0.69)
    readonly property color hover: Qt.alpha(ink, dark ? 0.055 : 0.05)
    readonly property color press: Qt.alpha(ink, dark ? 0.11 : 0.10)
    readonly property color fill: Qt.alpha(ink, dark ? 0.075 : 0.055)
    readonly property color tint: Qt.alpha(sage, dark ? 0.13 : 0.12)
    readonly property color tint2: Qt.alpha(sage, dark ? 0.20 : 0.19)
    readonly property color tint0: Qt.alpha(sage, 0.07)
    readonly property color field: Qt.alpha(muted, dark ? 0.34 : 0.38)
    readonly property color fieldHover: Qt.alpha(muted, dark ? 0.62 : 0.75)
    readonly property color track: Qt.alpha(muted, dark ? 0.45 : 0.55)
    readonly property color ring: Qt.alpha(sage, dark ? 0.26 : 0.24)
    readonly property color rustTint: Qt.alpha(rust, dark ? 0.12 : 0.09)
    readonly property color scrim: dark ? Qt.alpha(paper, 0.66) : Qt.alpha(ink, 0.34)
    readonly property color edge: dark ? line : Qt.alpha(ink, 0.10)
    readonly property color thumb: Qt.alpha(ink, dark ? 0.24 : 0.22)
    readonly property color separator: dark ? Qt.alpha(line, 0.75) : line
    readonly property color accentHover: Qt.alpha(onAccent, 0.10)
    readonly property color accentPress: Qt.alpha(onAccent, 0.20)
    readonly property color selection: Qt.alpha(sage, dark ? 0.35 : 0.25)
    readonly property color shadow2: dark ? Qt.rgba(0, 0, 0, 0.45) : Qt.alpha(ink, 0.14)
    readonly property color shadow3: dark ? Qt.rgba(0, 0, 0, 0.62) : Qt.alpha(ink, 0.26)

    readonly property font wordmark: serif(27)
    readonly property font display: serif(28)
    readonly property font heading: serif(24)
    readonly property font smallHeading: serif(22)
    readonly property font dayHeading: serif(15)
    readonly property font alertTitle: sans(16, Font.DemiBold)
    readonly property font rowTitle: Qt.font({
        family: "Inter",
        pixelSize: 14,
        weight: Font.DemiBold,
        letterSpacing: -0.1
    })
    readonly property font toastTitle: sans(14, Font.DemiBold)
    readonly property font label: sans(14, Font.Medium)
    readonly property font fieldText: sans(14, Font.Normal)
    readonly property font body: sans(13, Font.Normal)
    readonly property font button: sans(13, Font.DemiBold)
    readonly property font filter: sans(13, Font.Medium)
    readonly property font small: sans(12, Font.Normal)
    readonly property font smallMedium: sans(12, Font.Medium)
    readonly property font smallButton: sans(12, Font.DemiBold)
    readonly property font tag: sans(11, Font.Medium)
    readonly property font menuHeading: sans(11, Font.DemiBold)
    readonly property font swipeLabel: sans(9, Font.DemiBold)
    readonly property font sectionLabel: Qt.font({
        family: "Inter",
        pixelSize: 11,
        weight: Font.DemiBold,
        letterSpacing: 0.7
    })

    readonly property int groundDuration: 140
    readonly property int rowDuration: 180
    readonly property int pageMargin: 32
    readonly property int narrowPageMargin: 24
    readonly property int narrowWidth: 700
    readonly property int widestColumn: 884

    // How long something moves or grows: not at all for who has asked for less movement. What only
    // fades keeps its time.
    function movement(duration: int): int {
        return Appearance.reducedMotion ? 0 : duration;
    }
    // The column of content in a page of this width: in the middle, with a margin on either side.
    function margin(pageWidth: real): real {
        return pageWidth + 60 < narrowWidth ? narrowPageMargin : pageMargin;
    }
    function columnLeft(pageWidth: real): real {
        return Math.floor(Math.max(0, pageWidth - widestColumn) / 2) + margin(pageWidth);
    }
    function columnWidth(pageWidth: real): real {
        return Math.min(pageWidth, widestColumn) - 2 * margin(pageWidth);
    }

    // The bookish face of the few sentences that speak to the user; where it is missing, the
    // display cut of the other one.
    function serif(size: int): font {
        return Appearance.hasVollkorn ? Qt.font({
            family: "Vollkorn",
            pixelSize: size,
            weight: Font.Medium
        }) : Qt.font({
            family: "Inter Display",
            pixelSize: size - 2,
            weight: Font.DemiBold
        });
    }

    function sans(size: int, weight: int): font {
        return Qt.font({
            family: "Inter",
            pixelSize: size,
            weight: weight
        });
    }
}

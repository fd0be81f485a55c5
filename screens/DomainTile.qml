import QtQuick
import Brinmoor

// What a site is known by in every list: its icon, or its letter in colours of its own.
Rectangle {
    id: tile

    required property string domain
    /// The page, and where it says that its icon is; without a page the letter stays.
    property string address: ""
    property string iconHint: ""
    property bool small: false

    width: small ? 32 : 42
    height: width
    radius: small ? 9 : 12
    color: icon.loaded ? Theme.raised : LetterTiles.ground(domain, Theme.dark)
    border.width: icon.loaded ? 1 : 0
    border.color: Theme.line
    Accessible.ignored: true

    PlainText {
        visible: !icon.loaded
        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        text: LetterTiles.letter(tile.domain)
        color: LetterTiles.ink(tile.domain, Theme.dark)
        font: tile.small ? Theme.sans(14, Font.DemiBold) : Theme.sans(18, Font.DemiBold)
        Accessible.ignored: true
    }
    SiteIconShape {
        id: icon
        visible: loaded
        anchors.centerIn: parent
        width: tile.small ? 20 : 26
        height: width
        page: tile.address
        hint: tile.iconHint
    }
}

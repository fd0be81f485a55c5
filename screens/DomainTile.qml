import QtQuick
import Brinmoor

// What a site is known by in every list: its letter, in colours of its own.
Rectangle {
    id: tile

    required property string domain
    property bool small: false

    width: small ? 32 : 42
    height: width
    radius: small ? 9 : 12
    color: LetterTiles.ground(domain, Theme.dark)
    Accessible.ignored: true

    PlainText {
        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        text: LetterTiles.letter(tile.domain)
        color: LetterTiles.ink(tile.domain, Theme.dark)
        font: tile.small ? Theme.sans(14, Font.DemiBold) : Theme.sans(18, Font.DemiBold)
        Accessible.ignored: true
    }
}

import QtQuick
import Brinmoor

// A word under a group.
PlainText {
    x: 2
    width: parent ? parent.width - 4 : 0
    topPadding: 8
    color: Theme.ink3
    font: Theme.small
    wrapMode: Text.Wrap
    lineHeight: 17
    lineHeightMode: Text.FixedHeight
}

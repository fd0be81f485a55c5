import QtQuick
import Brinmoor

PlainText {
    height: 14
    color: Theme.ink3
    font: Theme.sectionLabel
}

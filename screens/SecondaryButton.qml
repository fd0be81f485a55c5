import QtQuick
import Brinmoor

BaseButton {
    fill: Theme.fill
    labelColor: Theme.ink
}

import QtQuick
import Brinmoor

BaseButton {
    fill: Theme.sage
    labelColor: Theme.onAccent
    hoverGround: Theme.accentHover
    pressGround: Theme.accentPress
}

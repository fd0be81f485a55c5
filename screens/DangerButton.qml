import QtQuick
import Brinmoor

// What destroys.
BaseButton {
    fill: Theme.rust
    ringColor: Theme.rust
    labelColor: Theme.onAccent
    hoverGround: Theme.accentHover
    pressGround: Theme.accentPress
}

import QtQuick
import Brinmoor

// Something is under way.
ArcShape {
    id: spinner

    implicitWidth: 14
    implicitHeight: 14
    color: Theme.sage
    track: Theme.field
    Accessible.ignored: true

    RotationAnimator on rotation {
        running: spinner.visible && !Appearance.reducedMotion
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
    }
}

import QtQuick
import Brinmoor

BaseButton {
    labelColor: Theme.sage
}

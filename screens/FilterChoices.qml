pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Brinmoor

// The lines of the filter menu. Arrows go from choice to choice, Enter chooses.
ListView {
    id: list

    required property var choices

    signal chosen(choice: var)

    function step(by: int) {
        for (let at = currentIndex + by; at >= 0 && at < count; at += by) {
            const kind = choices[at].kind;
            if (kind !== "heading" && kind !== "line") {
                currentIndex = at;
                return;
            }
        }
    }
    function chooseCurrent() {
        if (currentIndex >= 0)
            list.chosen(choices[currentIndex]);
    }

    implicitHeight: contentHeight
    focus: true
    clip: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    highlightMoveVelocity: -1
    currentIndex: -1
    model: choices
    onModelChanged: {
        currentIndex = -1;
        positionViewAtBeginning();
    }
    Accessible.role: Accessible.PopupMenu
    Accessible.name: Wording.words("Filter results")

    Keys.onDownPressed: list.step(1)
    Keys.onUpPressed: list.step(-1)
    Keys.onReturnPressed: list.chooseCurrent()
    Keys.onEnterPressed: list.chooseCurrent()
    Keys.onSpacePressed: list.chooseCurrent()

    delegate: FilterChoice {
        width: ListView.view.width
        highlighted: ListView.isCurrentItem
        onChosen: list.chosen(modelData)
        onEntered: list.currentIndex = index
    }
    T.ScrollBar.vertical: ThinScrollBar {}
}

pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// The tags that a "#" in the search field could mean. The keyboard stays in the field.
Item {
    id: suggestions

    required property LibrarySearch search
    required property bool wanted

    readonly property bool offered: wanted && search.tagSuggestions.length > 0
    property int place: 0

    width: 248
    height: column.height + 12
    visible: offered
    Accessible.role: Accessible.PopupMenu
    Accessible.name: Wording.words("Tags")

    function step(by: int) {
        place = (place + by + repeater.count) % repeater.count;
    }
    function take() {
        search.selectTag(search.tagSuggestions[place]);
    }

    Connections {
        target: suggestions.search
        function onSuggestionsChanged() {
            suggestions.place = 0;
        }
    }
    MenuGround {
        anchors.fill: parent
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
    }
    Column {
        id: column

        x: 6
        y: 6
        width: parent.width - 12

        Repeater {
            id: repeater
            model: suggestions.search.tagSuggestions
            delegate: Rectangle {
                id: entry

                required property string modelData
                required property int index

                width: column.width
                height: 30
                radius: 9
                color: tap.pressed ? Theme.press
                                   : index === suggestions.place ? Theme.hover : "transparent"
                Accessible.role: Accessible.MenuItem
                Accessible.name: modelData
                Accessible.onPressAction: suggestions.search.selectTag(entry.modelData)

                HoverHandler {
                    onHoveredChanged: {
                        if (hovered)
                            suggestions.place = entry.index;
                    }
                }
                TapHandler {
                    id: tap
                    onTapped: suggestions.search.selectTag(entry.modelData)
                }
                PlainText {
                    id: sign
                    x: 10
                    height: parent.height
                    text: "#"
                    color: Theme.sage
                    font: Theme.filter
                    Accessible.ignored: true
                }
                PlainText {
                    x: sign.x + sign.width + 4
                    width: count.x - x - 10
                    height: parent.height
                    text: entry.modelData
                    Accessible.ignored: true
                }
                PlainText {
                    id: count
                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    height: parent.height
                    text: suggestions.search.suggestionCount(entry.index)
                    color: Theme.ink3
                    font: Theme.small
                    Accessible.ignored: true
                }
            }
        }
    }
}

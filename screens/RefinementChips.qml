pragma ComponentBehavior: Bound

import QtQuick
import Brinmoor

// What refines the list. Pressing a chip takes it away, the button all of them.
Flow {
    id: chips

    required property LibrarySearch search

    spacing: 6

    RefinementChip {
        visible: chips.search.tag.length > 0
        greatestWidth: chips.width
        sign: "#"
        text: chips.search.tag
        onClicked: chips.search.tag = ""
    }
    RefinementChip {
        visible: chips.search.website.length > 0
        greatestWidth: chips.width
        drawing: "actions/16/globe"
        text: chips.search.website
        onClicked: chips.search.website = ""
    }
    RefinementChip {
        visible: chips.search.notesOnly
        greatestWidth: chips.width
        drawing: "actions/16/format-text-blockquote"
        text: Wording.words("Has note")
        onClicked: chips.search.notesOnly = false
    }
    TextButton {
        id: clear

        small: true
        height: 26
        text: Wording.words("Clear filters")
        Accessible.description: tip.text
        onClicked: chips.search.clearFilters()

        HelpTip {
            id: tip
            visible: clear.hovered
            text: Wording.words("Clear refinements")
        }
    }
}

#include "screens/TabSelectionList.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

Uuid uuid(unsigned char number) {
    Uuid id;
    id.bytes[0] = number;
    return id;
}

class TabSelectionListTest : public ::testing::Test {
protected:
    TabSelectionListTest() {
        draft.id = uuid(100);
        for (unsigned char number = 1; number <= 3; ++number) {
            draft.links.emplace_back("https://www.site" + std::to_string(number) + ".org/",
                                     "Page " + std::to_string(number), "Chromium", "Inbox",
                                     uuid(number), Instant{});
            draft.selected.insert(uuid(number));
        }
        list.show(draft);
    }
    [[nodiscard]] QVariant shown(int row, int role) const {
        return list.data(list.index(row), role);
    }

    TabSelectionDraft draft;
    int saves = 0;
    int cancels = 0;
    TabSelectionList list{uuid(100),
                          {.update =
                               [this](UuidSet selected) {
                                   draft.selected = std::move(selected);
                                   list.show(draft);
                               },
                           .save = [this] { ++saves; },
                           .cancel = [this] { ++cancels; }}};
};

TEST_F(TabSelectionListTest, showsTheTabsInTheirOrder) {
    ASSERT_EQ(list.rowCount(), 3);
    EXPECT_EQ(shown(0, TabSelectionList::TitleRole), u"Page 1"_qs);
    EXPECT_EQ(shown(2, TabSelectionList::DomainRole), u"site3.org"_qs);
    EXPECT_EQ(shown(1, TabSelectionList::SelectedRole), true);
}

TEST_F(TabSelectionListTest, countsAndNamesWhatWillBeSaved) {
    EXPECT_EQ(list.counterText(), u"3 selected"_qs);
    EXPECT_EQ(list.saveText(), u"Save 3 tabs"_qs);
    list.toggle(0);
    list.toggle(1);
    EXPECT_EQ(list.counterText(), u"1 selected"_qs);
    EXPECT_EQ(list.saveText(), u"Save tab"_qs);
    list.selectNone();
    EXPECT_EQ(list.counterText(), u"0 selected"_qs);
    EXPECT_EQ(list.saveText(), u"Save 0 tabs"_qs);
    list.selectAll();
    EXPECT_EQ(list.saveText(), u"Save 3 tabs"_qs);
}

TEST_F(TabSelectionListTest, togglingTwiceIsNothing) {
    const UuidSet before = draft.selected;
    list.toggle(1);
    EXPECT_FALSE(draft.selected.contains(uuid(2)));
    list.toggle(1);
    EXPECT_EQ(draft.selected, before);
}

TEST_F(TabSelectionListTest, aRowThatIsNotThereIsNotToggled) {
    list.toggle(-1);
    list.toggle(3);
    EXPECT_EQ(draft.selected.size(), 3U);
}

TEST_F(TabSelectionListTest, nothingIsSavedWhileNothingIsSelected) {
    list.selectNone();
    list.save();
    EXPECT_EQ(saves, 0);
    list.toggle(2);
    list.save();
    EXPECT_EQ(saves, 1);
}

TEST_F(TabSelectionListTest, aDraftOfAnotherPanelChangesNothing) {
    TabSelectionDraft other = draft;
    other.id = uuid(101);
    other.selected.clear();
    list.show(other);
    list.show(std::nullopt);
    EXPECT_EQ(list.selectedCount(), 3);
}

TEST_F(TabSelectionListTest, aToggleRedrawsNoTitle) {
    QSignalSpy changed(&list, &TabSelectionList::dataChanged);
    QSignalSpy reset(&list, &TabSelectionList::modelReset);
    list.toggle(0);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][2].value<QList<int>>(), QList<int>{TabSelectionList::SelectedRole});
    EXPECT_TRUE(reset.isEmpty());
}

} // namespace
} // namespace brinmoor

#include "screens/TabSelectionList.h"
#include "tests/screens/PanelDesk.h"

namespace brinmoor {
namespace {

using namespace testing;

class TabSelectionPanelTest : public PanelDesk {
protected:
    void open(int count) {
        std::vector<std::string> tabs;
        for (int number = 0; number < count; ++number)
            tabs.push_back(entry("https://site" + std::to_string(number) + ".org/",
                                 "Page " + std::to_string(number)));
        tabsAre(tabs);
        model().capture(CaptureAction::selected);
        ASSERT_TRUE(waitUntil([&] { return model().tabSelection().has_value(); }));
        panel = panels.tabSelection(model(), model().tabSelection()->id, "Save selected tabs");
        panel->willClose = [this] { ++closed; };
        panel->center();
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
    }
    [[nodiscard]] bool selectedBecome(std::size_t count) {
        return waitUntil([&] {
            const auto& draft = model().tabSelection();
            return draft && draft->selected.size() == count;
        });
    }
    /// Moves the keyboard to the button with this text.
    [[nodiscard]] bool goTo(const QString& text) {
        const auto focused = [&] { return viewOf(*panel).activeFocusItem(); };
        for (int tabs = 0; tabs < 8; ++tabs) {
            if (focused()->property("text").toString() == text)
                return true;
            const QQuickItem* before = focused();
            desktop.press(Key::tab);
            if (!waitUntil([&] { return focused() && focused() != before; }))
                return false;
        }
        return false;
    }
    QQuickItem* shown(const QString& type, const QString& text) {
        return itemOf(viewOf(*panel).rootObject(), type, text);
    }

    std::unique_ptr<Panel> panel;
    int closed = 0;
};

TEST_F(TabSelectionPanelTest, theKeyboardReachesEveryTab) {
    open(4);
    desktop.press(Key::down);
    desktop.press(Key::space);
    ASSERT_TRUE(selectedBecome(3));
    const auto& draft = *model().tabSelection();
    EXPECT_FALSE(draft.selected.contains(draft.links[1].id));
    desktop.press(Key::letterA, {"Ctrl"});
    EXPECT_TRUE(selectedBecome(4));
}

TEST_F(TabSelectionPanelTest, enterSavesInTheBrowsersOrder) {
    open(3);
    desktop.press(Key::space);
    ASSERT_TRUE(selectedBecome(2));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return selectionsClosed == 1; }));
    EXPECT_EQ(titles(), (std::vector<std::string>{"Page 1", "Page 2"}));
}

TEST_F(TabSelectionPanelTest, turnsTheUserToTheProgramAndIsStillThereWhenItIsAskedWhetherItWas) {
    otherInFront();
    int returns = 0;
    panels.didBecomeActive = [&] { ++returns; };
    open(3);
    EXPECT_EQ(returns, 1);
    bool wasActive = false;
    panel->willClose = [&] {
        wasActive = panels.applicationIsActive();
        ++closed;
    };
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return closed == 1; }));
    EXPECT_TRUE(wasActive);
}

TEST_F(TabSelectionPanelTest, enterOnAButtonPressesIt) {
    open(3);
    ASSERT_TRUE(goTo(u"Select none"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(selectedBecome(0));
    ASSERT_TRUE(goTo(u"Select all"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(selectedBecome(3));
    ASSERT_TRUE(goTo(u"Cancel"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return closed == 1; }));
    EXPECT_TRUE(titles().empty());
}

TEST_F(TabSelectionPanelTest, controlAndEnterSaveFromAnywhere) {
    open(2);
    ASSERT_TRUE(goTo(u"Cancel"_qs));
    desktop.press(Key::enter, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return selectionsClosed == 1; }));
    EXPECT_EQ(titles().size(), 2U);
}

TEST_F(TabSelectionPanelTest, escapeCancels) {
    open(3);
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return closed == 1; }));
    EXPECT_FALSE(panel->isVisible());
    EXPECT_TRUE(titles().empty());
}

TEST_F(TabSelectionPanelTest, clicksToggleAndSelectAllAndNone) {
    open(3);
    click(*panel, u"TabSelectionRow"_qs);
    ASSERT_TRUE(selectedBecome(2));
    click(*panel, u"TextButton"_qs, u"Select none"_qs);
    ASSERT_TRUE(selectedBecome(0));
    click(*panel, u"TextButton"_qs, u"Select all"_qs);
    EXPECT_TRUE(selectedBecome(3));
}

TEST_F(TabSelectionPanelTest, withNoneSelectedNothingIsSavedAndThePanelStays) {
    open(2);
    click(*panel, u"TextButton"_qs, u"Select none"_qs);
    ASSERT_TRUE(selectedBecome(0));
    QQuickItem* save = shown(u"PrimaryButton"_qs, u"Save 0 tabs"_qs);
    ASSERT_NE(save, nullptr);
    EXPECT_FALSE(save->isEnabled());
    desktop.press(Key::enter);
    settle();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_TRUE(model().tabSelection().has_value());
    EXPECT_TRUE(titles().empty());
}

TEST_F(TabSelectionPanelTest, sixRowsAreShownAndTheRestScrolls) {
    open(6);
    const int six = panel->size().height;
    panel.reset();
    model().discardTabSelection();
    open(40);
    EXPECT_EQ(panel->size().height, six);
    EXPECT_EQ(panel->size().width, 488);
}

} // namespace
} // namespace brinmoor

#include "tests/screens/PanelDesk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;
using ::testing::ElementsAre;

constexpr std::uint32_t f10 = 0xffc7;
constexpr std::uint32_t right = 0xff53;

class ShellMenuTest : public PanelDesk {
protected:
    ShellMenuTest() {
        window = panels.libraryWindow(model());
        const auto says = [this](const std::string& words) {
            return [this, words] { chosen.push_back(words); };
        };
        panels.setMainMenu(
            {{.title = "File",
              .items = {{.title = "First", .key = "N", .run = says("first"), .isEnabled = nullptr},
                        {},
                        {.title = "Second",
                         .key = "",
                         .run = says("second"),
                         .isEnabled = [this] { return secondIsEnabled; }}}},
             {.title = "Edit",
              .items = {
                  {.title = "Undo",
                   .key = "Z",
                   .run = says("undo"),
                   .isEnabled =
                       [this] {
                           return libraryCanUndo || panels.canPerform(WindowCommand::undoText);
                       }},
                  {.title = "Find…", .key = "F", .run = says("find"), .isEnabled = nullptr}}}});
        window->makeKeyAndOrderFront();
        EXPECT_TRUE(becomesActive(*window));
    }

    bool isChosen(const std::string& words) {
        return waitUntil([&] { return !chosen.empty() && chosen.back() == words; });
    }
    bool opens() {
        return waitUntil([&] {
            auto* menu = itemOf(viewOf(*window).rootObject(), u"MainMenu"_qs);
            return menu && menu->property("opened").toBool();
        });
    }

    std::unique_ptr<Panel> window;
    std::vector<std::string> chosen;
    bool secondIsEnabled = true;
    bool libraryCanUndo = true;
};

TEST_F(ShellMenuTest, keysChooseWithoutTheMenu) {
    desktop.press('n', {"Ctrl"});
    EXPECT_TRUE(isChosen("first"));
    desktop.press('f', {"Ctrl"});
    EXPECT_TRUE(isChosen("find"));
}

TEST_F(ShellMenuTest, f10OpensItAndTheArrowsWalkThroughIt) {
    desktop.press(f10);
    ASSERT_TRUE(opens());
    desktop.press(Key::down);
    desktop.press(right);
    desktop.press(Key::down);
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return !chosen.empty(); }));
}

TEST_F(ShellMenuTest, escapeClosesItWithoutAChoice) {
    desktop.press(f10);
    ASSERT_TRUE(opens());
    desktop.press(Key::escape);
    EXPECT_TRUE(waitUntil([&] {
        return !itemOf(viewOf(*window).rootObject(), u"MainMenu"_qs)->property("opened").toBool();
    }));
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ShellMenuTest, aTextUndoesBeforeAnythingElse) {
    desktop.press('f', {"Ctrl"});
    ASSERT_TRUE(isChosen("find"));
    model().focusSearch();
    ASSERT_TRUE(waitUntil([&] {
        QObject* item = viewOf(*window).activeFocusItem();
        return item && item->property("canUndo").isValid();
    }));
    EXPECT_FALSE(panels.canPerform(WindowCommand::undoText));
    desktop.type("abc");
    EXPECT_TRUE(waitUntil([&] { return panels.canPerform(WindowCommand::undoText); }));
    panels.perform(WindowCommand::undoText);
    EXPECT_TRUE(waitUntil([&] { return !panels.canPerform(WindowCommand::undoText); }));
}

TEST_F(ShellMenuTest, whatATextCanUndoCanBeChosenThoughTheMenuHasTheKeyboardByThen) {
    libraryCanUndo = false;
    model().focusSearch();
    ASSERT_TRUE(waitUntil([&] {
        QObject* item = viewOf(*window).activeFocusItem();
        return item && item->property("canUndo").isValid();
    }));
    desktop.type("abc");
    ASSERT_TRUE(waitUntil([&] { return panels.canPerform(WindowCommand::undoText); }));
    desktop.press(f10);
    ASSERT_TRUE(opens());
    // The second menu, its first entry.
    for (const std::uint32_t key : {Key::down, Key::down, right, Key::enter})
        desktop.press(key);
    EXPECT_TRUE(isChosen("undo"));
}

TEST_F(ShellMenuTest, controlZReachesTheShellWhenTheTextHasNothingLeft) {
    model().focusSearch();
    ASSERT_TRUE(waitUntil([&] {
        QObject* item = viewOf(*window).activeFocusItem();
        return item && item->property("canUndo").isValid();
    }));
    desktop.press('z', {"Ctrl"});
    EXPECT_TRUE(isChosen("undo"));
}

TEST_F(ShellMenuTest, withoutATextInFocusThereIsNoTextToUndo) {
    EXPECT_FALSE(panels.canPerform(WindowCommand::undoText));
    EXPECT_FALSE(panels.canPerform(WindowCommand::copy));
    EXPECT_TRUE(panels.canPerform(WindowCommand::quit));
}

} // namespace
} // namespace brinmoor

#include "browser/TabSearchModel.h"
#include "tests/screens/PanelDesk.h"
#include "tests/support/TabRecords.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;
using ::testing::HasSubstr;

constexpr std::uint32_t up = 0xff52;
constexpr std::uint32_t digit2 = 0x32;
constexpr std::uint32_t digit9 = 0x39;

class TabSearchPanelTest : public PanelDesk {
protected:
    void open() {
        scripts.answer = [this](const ScriptRun& run) {
            const bool isReading =
                run.script.find("JSON.stringify(readBrowserTabs") != std::string::npos;
            return CannedScripts::Answer(isReading ? tabList("org.chromium.Chromium", tabs())
                                                   : QByteArray("true"));
        };
        panel = panels.tabSearch(model());
        panel->willClose = [this] { ++closed; };
        search().close = [this] { panel->orderOut(); };
        panel->center();
        show();
    }
    void show() {
        search().setQuery("");
        search().refresh();
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
        ASSERT_TRUE(waitUntil([&] { return !search().loading(); }));
    }
    static std::vector<PretendedTab> tabs() {
        std::vector<PretendedTab> all;
        for (int number = 1; number <= 5; ++number)
            all.push_back({"https://a.test/" + std::to_string(number),
                           "Page " + std::to_string(number), 1, number});
        return all;
    }
    TabSearchModel& search() { return model().tabSearch(); }
    [[nodiscard]] bool selects(int row) {
        return waitUntil([&] { return search().selectedIndex() == row; });
    }
    /// The panel went, after the tab with this address was brought to the front.
    void expectSwitchedTo(const std::string& url) {
        ASSERT_TRUE(waitUntil([&] { return !panel->isVisible(); }));
        EXPECT_THAT(scripts.runs.back().script, HasSubstr(url));
    }

    std::unique_ptr<Panel> panel;
    int closed = 0;
};

TEST_F(TabSearchPanelTest, isAsLargeAsItIsMeantToBe) {
    open();
    EXPECT_EQ(panel->size(), (PanelSize{620, 496}));
}

TEST_F(TabSearchPanelTest, takesTheKeyboardWithoutRaisingTheLibrary) {
    const auto library = panels.libraryWindow(model());
    library->makeKeyAndOrderFront();
    ASSERT_TRUE(becomesActive(*library));
    otherInFront();
    open();
    EXPECT_TRUE(desktop.isAbove(windowOf(*panel), desktop.otherWindow()));
    EXPECT_TRUE(desktop.isAbove(desktop.otherWindow(), windowOf(*library)));
    desktop.type("page 4");
    ASSERT_TRUE(waitUntil([&] { return search().results().size() == 1; }));
    desktop.press(Key::enter);
    expectSwitchedTo("https://a.test/4");
}

TEST_F(TabSearchPanelTest, goesWithTheKeyboardAndComesBackEmpty) {
    open();
    desktop.type("page");
    ASSERT_TRUE(waitUntil([&] { return search().query() == "page"; }));
    otherInFront();
    ASSERT_TRUE(waitUntil([&] { return !panel->isVisible(); }));
    show();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(itemOf(viewOf(*panel).rootObject(), u"Field"_qs)->property("text").toString(),
              QString());
}

TEST_F(TabSearchPanelTest, arrowsMoveTheSelectionAndEnterSwitches) {
    open();
    desktop.press(up);
    desktop.press(Key::down);
    desktop.press(Key::down);
    ASSERT_TRUE(selects(2));
    desktop.press(up);
    ASSERT_TRUE(selects(1));
    desktop.press(Key::enter);
    expectSwitchedTo("https://a.test/2");
}

TEST_F(TabSearchPanelTest, controlAndADigitJumpAndNineOfFiveDoesNothing) {
    open();
    const auto before = scripts.runs.size();
    desktop.press(digit9, {"Ctrl"});
    desktop.press(Key::down);
    ASSERT_TRUE(selects(1));
    EXPECT_EQ(scripts.runs.size(), before);
    desktop.press(digit2, {"Ctrl"});
    expectSwitchedTo("https://a.test/2");
}

TEST_F(TabSearchPanelTest, escapeCloses) {
    open();
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return closed == 1; }));
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(TabSearchPanelTest, theSelectedTabIsSavedByTheKeyboardAlone) {
    open();
    desktop.press(Key::tab);
    desktop.press(Key::tab);
    ASSERT_TRUE(waitUntil([&] {
        const QQuickItem* item = viewOf(*panel).activeFocusItem();
        return item && item->property("text").toString() == u"Save this tab";
    }));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return titles().size() == 1; }));
    EXPECT_EQ(search().message(), "Saved to your library.");
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(TabSearchPanelTest, aClickSwitches) {
    open();
    click(*panel, u"TabSearchRow"_qs);
    expectSwitchedTo("https://a.test/1");
}

} // namespace
} // namespace brinmoor

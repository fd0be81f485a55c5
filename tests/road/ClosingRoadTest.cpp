#include "tests/road/Road.h"
#include "tests/support/Eventually.h"

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

class ClosingRoad : public Road {
protected:
    ClosingRoad() { givenPreference("closeAfterQuickSave", true); }

    [[nodiscard]] static bool hasMovingTab() {
        const std::string tabs = chromium().call("tabs.query", "[{}]");
        return tabs.find("\"http://close.test/moving?") != std::string::npos;
    }
};

TEST_F(ClosingRoad, theSavedTabIsClosed) {
    shell();
    browse({"http://close.test/kept", "http://close.test/one"});
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Saved & closed"),
              Words("Saved & closed", "Ready in your library whenever you need it."));
    EXPECT_FALSE(isOpen("http://close.test/one"));
    EXPECT_TRUE(isOpen("http://close.test/kept"));
    EXPECT_EQ(stored().links.at(0).url, "http://close.test/one");
}

TEST_F(ClosingRoad, aTabWhoseAddressChangedMeanwhileStaysOpen) {
    shell();
    browse({"http://close.test/other"});
    (void)chromium().call("tabs.create", "[{\"url\":\"http://close.test/moving\"}]");
    ASSERT_TRUE(eventually([&] { return hasMovingTab(); }));
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Saved · tab left open").second,
              "The tab changed or couldn’t be closed safely. Your link is saved.");
    EXPECT_EQ(stored().links.size(), 1U);
    EXPECT_TRUE(hasMovingTab());
}

TEST_F(ClosingRoad, aNotesTabThatWentElsewhereStaysOpen) {
    shell();
    browse({"http://close.test/before"});
    press(RoadKey::note);
    ASSERT_TRUE(waitUntil([&] { return model().draft().has_value(); }));
    goTo("http://close.test/before", "http://close.test/after");
    model().saveDraft(model().draft()->link);
    EXPECT_EQ(noticeWith("Saved · tab left open").second,
              "The tab changed or couldn’t be closed safely. Your note and tags are saved.");
    EXPECT_TRUE(isOpen("http://close.test/after"));
}

TEST_F(ClosingRoad, aTabMovedWithinItsWindowIsFoundAndClosed) {
    shell();
    browse({"http://close.test/a", "http://close.test/b", "http://close.test/c"});
    press(RoadKey::note);
    ASSERT_TRUE(waitUntil([&] { return model().draft().has_value(); }));
    const int tab = chromium().loadedTab("http://close.test/c");
    (void)chromium().call("tabs.move", "[" + std::to_string(tab) + ",{\"index\":0}]");
    model().saveDraft(model().draft()->link);
    noticeWith("Saved & closed");
    EXPECT_FALSE(isOpen("http://close.test/c"));
    EXPECT_TRUE(isOpen("http://close.test/a"));
    EXPECT_TRUE(isOpen("http://close.test/b"));
}

TEST_F(ClosingRoad, aTabMovedToAnotherWindowStaysOpen) {
    shell();
    browse({"http://close.test/d", "http://close.test/e"});
    press(RoadKey::note);
    ASSERT_TRUE(waitUntil([&] { return model().draft().has_value(); }));
    const int tab = chromium().loadedTab("http://close.test/e");
    (void)chromium().call("windows.create", "[{\"tabId\":" + std::to_string(tab) + "}]");
    model().saveDraft(model().draft()->link);
    noticeWith("Saved · tab left open");
    EXPECT_TRUE(isOpen("http://close.test/e"));
}

TEST_F(ClosingRoad, aWindowsTabsAreNeverClosed) {
    shell();
    browse({"http://close.test/w1", "http://close.test/w2"});
    press(RoadKey::window);
    noticeWith("2 tabs saved");
    ASSERT_TRUE(settled());
    EXPECT_TRUE(isOpen("http://close.test/w1"));
    EXPECT_TRUE(isOpen("http://close.test/w2"));
}

} // namespace
} // namespace brinmoor::testing

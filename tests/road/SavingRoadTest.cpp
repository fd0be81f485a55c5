#include "tests/road/Road.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace brinmoor::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

using SavingRoad = Road;

const Words tabSaved("Tab saved", "Ready in your library whenever you need it.");
const Words alreadySaved("Already saved", "Already in your library. No duplicate added.");

TEST_F(SavingRoad, aPressSavesThePageWithItsTitleIconAndTags) {
    auto known = link("https://b.test/", "Other");
    known.tags = {"tide"};
    Library library;
    library.links = {known};
    given(library);
    shell();
    browse({"http://a.test/metadata"});
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Tab saved"), tabSaved);
    picture("saved");
    const SavedLink saved = stored().links.at(0);
    EXPECT_EQ(saved.url, "http://a.test/metadata");
    EXPECT_EQ(saved.title, "Tide tables & how they are made");
    EXPECT_EQ(saved.iconURL, "http://a.test/icon.png?a&b");
    EXPECT_THAT(saved.tags, ElementsAre("tide"));
    EXPECT_EQ(saved.browser, "Chromium");
    EXPECT_EQ(stored(), model().library());
}

TEST_F(SavingRoad, theNoticeLeavesTheKeyboardToTheBrowser) {
    shell();
    browse({"http://a.test/keyboard"});
    press(RoadKey::quick);
    noticeWith("Tab saved");
    EXPECT_TRUE(browserIsInFront());
}

TEST_F(SavingRoad, theSamePageAgainChangesNothing) {
    shell();
    browse({"http://a.test/again"});
    press(RoadKey::quick);
    noticeWith("Tab saved");
    const Library before = stored();
    ASSERT_TRUE(settled());
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Already saved"), alreadySaved);
    EXPECT_EQ(stored(), before);
}

TEST_F(SavingRoad, aStoredTitleThatSaysNothingIsHealed) {
    auto known = link("http://a.test/metadata", "Log in to A");
    known.note = "kept";
    Library library;
    library.links = {known};
    given(library);
    shell();
    browse({"http://a.test/metadata"});
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Already saved"), alreadySaved);
    EXPECT_THAT(storedTitles(), ElementsAre("Tide tables & how they are made"));
    EXPECT_EQ(stored().links.at(0).note, "kept");
}

TEST_F(SavingRoad, aWindowOfFiveTabsWithTwoKnownSavesThreeInTabOrder) {
    Library library;
    library.links = {link("http://five.test/2", "Two"), link("http://five.test/4", "Four")};
    given(library);
    shell();
    browse({"http://five.test/1", "http://five.test/2", "http://five.test/3", "http://five.test/4",
            "http://five.test/5"});
    press(RoadKey::window);
    EXPECT_EQ(noticeWith("3 tabs saved"),
              Words("3 tabs saved", "Ready in your library whenever you need it."));
    EXPECT_THAT(storedTitles(), ElementsAre("Page /1", "Page /3", "Page /5", "Two", "Four"));
}

TEST_F(SavingRoad, addressesThatBrowsersWriteAreSavedAsOneLinkEach) {
    shell();
    const std::vector<std::string> addresses{
        "http://odd.test/?a[]=1&b={x|y}", "http://odd.test/%E3%83%91%E3%82%B9?q=%E3%81%82#top",
        "http://odd.test/a%20b%7Cc[d]e", "http://odd.test/x%zz", "http://xn--r8jz45g.test/"};
    browse(addresses);
    press(RoadKey::window);
    noticeWith("5 tabs saved");
    const Library first = stored();
    ASSERT_EQ(first.links.size(), 5U);
    for (const SavedLink& each : first.links)
        EXPECT_EQ(Library::validatedURL(each.url).value().string(), each.url);
    ASSERT_TRUE(settled());
    press(RoadKey::window);
    EXPECT_EQ(noticeWith("Already saved"), alreadySaved);
    EXPECT_EQ(stored(), first);
}

TEST_F(SavingRoad, aPageOfAThrowingScriptOrAHugeTitleIsSavedAllTheSame) {
    shell();
    browse({"http://a.test/throwing", "http://a.test/huge"});
    press(RoadKey::window);
    noticeWith("2 tabs saved");
    EXPECT_EQ(storedTitles().at(0), "Throwing");
    EXPECT_THAT(storedTitles().at(1), StartsWith("xxxx"));
    EXPECT_LE(storedTitles().at(1).size(), 180U);
}

TEST_F(SavingRoad, aTabThatIsNoWebPageDoesNotStopTheOthers) {
    shell();
    browse({"http://a.test/first", "http://a.test/second"});
    (void)chromium().call("tabs.create", "[{\"url\":\"about:blank\",\"index\":0}]");
    press(RoadKey::window);
    noticeWith("2 tabs saved");
    EXPECT_THAT(storedTitles(), ElementsAre("Page /first", "Page /second"));
}

TEST_F(SavingRoad, aLockedLibraryStaysByteForByte) {
    given(Library());
    const std::string path = real().libraryPath;
    const std::string cut = "{\n  \"collections\" : [";
    std::ofstream(path, std::ios::trunc) << cut;
    shell();
    EXPECT_THAT(*model().error(), StartsWith("Your saved library couldn’t be opened."));
    picture("locked");
    browse({"http://a.test/locked"});
    press(RoadKey::quick);
    EXPECT_EQ(noticeWith("Couldn’t save your tab").second,
              "Your library couldn’t be opened. Restore a valid backup and restart Brinmoor. Your "
              "original file is unchanged.");
    std::ifstream file(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), cut);
}

} // namespace
} // namespace brinmoor::testing

#include "browser/Browser.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

TEST(BrowserCatalogue, holdsTenBrowsersInTheOrderInWhichTheyAreVisited) {
    std::vector<std::string> names;
    for (const Browser& browser : Browser::supported())
        names.emplace_back(browser.name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"Safari", "Safari Preview", "Chrome", "Chrome Beta",
                                        "Brave", "Edge", "Arc", "Vivaldi", "Chromium", "Opera"}));
}

TEST(BrowserCatalogue, takesIdentifiersOnlyWhole) {
    EXPECT_NE(Browser::find("org.chromium.Chromium"), nullptr);
    EXPECT_EQ(Browser::find("org.chromium.Chromium.dev"), nullptr);
    EXPECT_EQ(Browser::find("org.chromium"), nullptr);
    EXPECT_EQ(Browser::find(""), nullptr);
}

TEST(BrowserCatalogue, onlyTheFirstTwoAreOfTheSafariFamily) {
    int place = 0;
    for (const Browser& browser : Browser::supported())
        EXPECT_EQ(browser.isSafari(), ++place <= 2) << browser.id;
}

TEST(UnsupportedBrowsers, areKnownByTheBeginningOfTheirIdentifier) {
    EXPECT_TRUE(isKnownUnsupported("org.mozilla.firefox"));
    EXPECT_TRUE(isKnownUnsupported("org.mozilla.firefoxdeveloperedition"));
    EXPECT_TRUE(isKnownUnsupported("app.zen-browser.zen"));
    EXPECT_FALSE(isKnownUnsupported("org.mozilla"));
    EXPECT_FALSE(isKnownUnsupported("my.org.mozilla.firefox"));
    EXPECT_FALSE(isKnownUnsupported("org.chromium.Chromium"));
}

} // namespace
} // namespace brinmoor

#include "browser/Browser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace brinmoor {
namespace {

TEST(BrowserCatalogue, holdsTenBrowsersInTheOrderInWhichTheyAreVisited) {
    const std::vector<Browser> expected{
        {"com.apple.Safari", "Safari"},
        {"com.apple.SafariTechnologyPreview", "Safari Preview"},
        {"com.google.Chrome", "Chrome"},
        {"com.google.Chrome.beta", "Chrome Beta"},
        {"com.brave.Browser", "Brave"},
        {"com.microsoft.edgemac", "Edge"},
        {"company.thebrowser.Browser", "Arc"},
        {"com.vivaldi.Vivaldi", "Vivaldi"},
        {"org.chromium.Chromium", "Chromium"},
        {"com.operasoftware.Opera", "Opera"},
    };
    EXPECT_TRUE(std::ranges::equal(Browser::supported(), expected));
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
    EXPECT_TRUE(isKnownUnsupported("com.kagi.kagimacOS"));
    EXPECT_TRUE(isKnownUnsupported("com.kagi.kagimacOS.beta"));
    EXPECT_TRUE(isKnownUnsupported("com.openai.codex"));
    EXPECT_TRUE(isKnownUnsupported("com.openai.codex.nightly"));
    EXPECT_FALSE(isKnownUnsupported("com.kagi"));
    EXPECT_FALSE(isKnownUnsupported("com.openai.chat"));
    EXPECT_FALSE(isKnownUnsupported("org.mozilla"));
    EXPECT_FALSE(isKnownUnsupported("my.org.mozilla.firefox"));
    EXPECT_FALSE(isKnownUnsupported("org.chromium.Chromium"));
}

} // namespace
} // namespace brinmoor

#include "browser/TabScripts.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

const Browser& chrome() {
    return *Browser::find("com.google.Chrome");
}
const Browser& safari() {
    return *Browser::find("com.apple.Safari");
}

BrowserTabSnapshot snapshot(int place, std::string url) {
    BrowserTabSnapshot tab;
    tab.windowID = "1";
    tab.tabID = std::to_string(place);
    tab.index = place;
    tab.url = std::move(url);
    return tab;
}

TEST(ReadScripts, nameTheirBrowserBetweenSingleQuotes) {
    const std::string arguments = "(Application('com.google.Chrome'), { id: 'com.google.Chrome', "
                                  "name: 'Chrome', safari: false })); }\n";
    EXPECT_THAT(readTabsScript(chrome()),
                EndsWith("function run() { return JSON.stringify(readBrowserTabs" + arguments));
    EXPECT_THAT(
        readTabsForCleanupScript(chrome()),
        EndsWith("function run() { return JSON.stringify(readBrowserTabsForCleanup" + arguments));
    EXPECT_THAT(readTabsScript(safari()), HasSubstr("safari: true"));
}

TEST(ActivateScript, anAddressOfAPageCannotLeaveItsText) {
    OpenBrowserTab tab;
    tab.windowID = "1\"";
    tab.tabID = "2'";
    tab.index = 3;
    tab.url = "https://a.example/\"}); evil('\n\xE2\x80\xA8";
    const auto script = activateTabScript(chrome(), tab);
    EXPECT_THAT(script,
                HasSubstr(R"(Application('com.google.Chrome'), {"windowID":"1\"","tabID":"2'",)"
                          R"("index":3,"url":"https://a.example/\"}); evil('\u000a\u2028",)"
                          R"("safari":false})"));
    EXPECT_THAT(script, Not(HasSubstr("\xE2\x80\xA8")));
}

TEST(CloseScripts, nameTheTabsInTheirOrder) {
    const auto scripts =
        closeTabsScripts(safari(), {snapshot(1, "https://a.com"), snapshot(4, "")});
    ASSERT_THAT(scripts, SizeIs(1));
    EXPECT_THAT(scripts[0],
                EndsWith(R"(closeBrowserTabs(Application('com.apple.Safari'), [{"windowID":"1",)"
                         R"("tabID":"1","index":1,"url":"https://a.com","safari":true},)"
                         R"({"windowID":"1","tabID":"4","index":4,"url":"","safari":true}])); })"
                         "\n"));
    EXPECT_THAT(closeTabsScripts(safari(), {}), SizeIs(0));
}

TEST(CloseScripts, noneHasMoreTabsThanItsTimeIsEnoughFor) {
    std::vector<BrowserTabSnapshot> tabs;
    for (int place = 1; place <= 121; ++place)
        tabs.push_back(snapshot(place, "https://a.example/"));
    EXPECT_THAT(closeTabsScripts(chrome(), tabs), SizeIs(4));
    tabs.pop_back();
    EXPECT_THAT(closeTabsScripts(chrome(), tabs), SizeIs(3));
}

TEST(CloseScripts, eachFitsIntoAnArgumentAndTheLastTabsComeFirst) {
    std::vector<BrowserTabSnapshot> tabs;
    for (int place = 1; place <= 200; ++place)
        tabs.push_back(snapshot(place, "https://a.example/" + std::string(5000, 'x')));
    const auto scripts = closeTabsScripts(chrome(), tabs);
    EXPECT_THAT(scripts, SizeIs(9));
    std::vector<int> order;
    for (const std::string& script : scripts) {
        EXPECT_LT(script.size(), std::size_t{128} << 10);
        constexpr std::string_view key = "\"index\":";
        std::vector<int> places;
        for (auto at = script.find(key); at != std::string::npos; at = script.find(key, at + 1))
            places.push_back(std::atoi(script.c_str() + at + key.size()));
        order.insert(order.begin(), places.begin(), places.end());
    }
    ASSERT_EQ(order.size(), tabs.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        EXPECT_EQ(order[i], static_cast<int>(i) + 1);
}

TEST(CloseScripts, anAddressThatIsTooLongHoldsUpNoOtherTab) {
    const auto scripts =
        closeTabsScripts(chrome(), {snapshot(1, "https://a.example/"),
                                    snapshot(2, "https://a.example/" + std::string(200'000, 'x')),
                                    snapshot(3, "https://a.example/")});
    ASSERT_THAT(scripts, SizeIs(3));
    EXPECT_LT(scripts[0].size(), std::size_t{128} << 10);
    EXPECT_LT(scripts[2].size(), std::size_t{128} << 10);
}

} // namespace
} // namespace brinmoor

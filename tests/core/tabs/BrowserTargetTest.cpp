#include "core/tabs/BrowserTarget.h"

#include "tests/core/Generated.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brinmoor::BrowserTarget {
namespace {

using Names = std::set<std::string>;
using Name = std::optional<std::string>;

const Names supported{"safari", "chrome", "brave"};
const Name none;

TEST(BrowserTarget, theFrontBrowserWins) {
    EXPECT_EQ(resolve("chrome", supported, {"chrome", "safari"}, "safari", {"safari"}), "chrome");
}

TEST(BrowserTarget, aFrontBrowserThatQuitsIsPassedOver) {
    EXPECT_EQ(resolve("chrome", supported, {"safari", "brave"}, "safari", {}), "safari");
}

TEST(BrowserTarget, aFrontApplicationThatIsNoBrowserLeavesTheChoiceToTheRest) {
    EXPECT_EQ(resolve("editor", supported, {"editor", "chrome", "safari"}, "chrome", {"safari"}),
              "chrome");
}

TEST(BrowserTarget, aRememberedBrowserCountsOnlyWhileItRuns) {
    EXPECT_EQ(resolve(none, supported, {"safari", "brave"}, "chrome", {"brave"}), "brave");
    EXPECT_EQ(resolve(none, supported, {"safari", "chrome"}, "chrome", {"safari"}), "chrome");
}

TEST(BrowserTarget, aRememberedNameThatIsNotSupportedIsPassedOver) {
    EXPECT_EQ(resolve(none, supported, {"old", "safari", "chrome"}, "old", {"chrome"}), "chrome");
}

TEST(BrowserTarget, theFrontmostVisibleBrowserComesNext) {
    EXPECT_EQ(resolve(none, supported, {"safari", "chrome", "editor"}, none,
                      {"editor", "brave", "chrome", "chrome", "safari"}),
              "chrome");
}

TEST(BrowserTarget, theOnlyRunningBrowserNeedsNoWindow) {
    EXPECT_EQ(resolve(none, supported, {"editor", "safari"}, none, {}), "safari");
}

TEST(BrowserTarget, twoBrowsersWithoutASignAreNoChoice) {
    EXPECT_EQ(resolve(none, supported, {"safari", "chrome"}, none, {}), none);
    EXPECT_EQ(resolve(none, supported, {}, "chrome", {"chrome"}), none);
    EXPECT_EQ(resolve(none, {}, {"safari"}, none, {}), none);
}

/// The rule once more, as one list of wishes.
Name byWishes(const Name& front, const Names& running, const Name& remembered,
              const std::vector<std::string>& visible) {
    std::vector<std::string> wishes;
    if (front)
        wishes.push_back(*front);
    if (remembered)
        wishes.push_back(*remembered);
    wishes.insert(wishes.end(), visible.begin(), visible.end());
    Names possible;
    std::ranges::set_intersection(supported, running, std::inserter(possible, possible.end()));
    if (possible.size() == 1)
        wishes.push_back(*possible.begin());
    const auto wish = std::ranges::find_if(
        wishes, [&](const std::string& name) { return possible.contains(name); });
    return wish == wishes.end() ? Name{} : *wish;
}

TEST(BrowserTarget, everyAnswerIsTheFirstPossibleWish) {
    const std::vector<std::string> names{"safari", "chrome", "brave", "editor", "old"};
    tests::forSeeds(20000, [&](tests::Generated& generated) {
        const auto maybe = [&] { return generated.oneIn(3) ? Name{} : generated.oneOf(names); };
        Names running;
        std::vector<std::string> visible;
        for (std::size_t left = generated.below(5); left > 0; --left)
            running.insert(generated.oneOf(names));
        for (std::size_t left = generated.below(4); left > 0; --left)
            visible.push_back(generated.oneOf(names));
        const Name front = maybe();
        const Name remembered = maybe();
        EXPECT_EQ(resolve(front, supported, running, remembered, visible),
                  byWishes(front, running, remembered, visible));
    });
}

} // namespace
} // namespace brinmoor::BrowserTarget

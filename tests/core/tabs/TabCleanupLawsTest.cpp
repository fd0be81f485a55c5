// What holds of every plan, whatever tabs are open.

#include "core/tabs/TabCleanupPlanner.h"

#include "core/library/Library.h"
#include "tests/core/Generated.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace brinmoor::TabCleanupPlanner {
namespace {

using tests::forSeeds;
using tests::Generated;

using Tabs = std::vector<BrowserTabSnapshot>;

const std::vector<std::string> addresses{
    "https://a.com/",    "https://a.com",         "HTTPS://A.com/",       "https://www.a.com/",
    "https://m.a.com/x", "https://m.a.com/x/",    "https://b.org/#1",     "https://b.org/#2",
    "chrome://flags/",   "file:///tmp/x",         "https://me@a.com/",    "https://aa.com/",
    "not an address",    "https://a.com/a|b?c[]", "https://a.com.b.org/", ""};
const std::vector<std::string> entries{"a.com", "m.a.com", "b.org",     "A.COM",   "a b",
                                       "",      "com",     "www.a.com", "me@a.com"};

/// Windows of two browsers with tabs as a browser has them: one active in each, numbers unique.
Tabs openTabs(Generated& generated) {
    Tabs tabs;
    for (const char* browser : {"org.chromium.Chromium", "com.apple.Safari"}) {
        const bool safari = std::string(browser) == "com.apple.Safari";
        for (int window = 1; window <= static_cast<int>(generated.below(4)); ++window) {
            const int count = static_cast<int>(generated.below(9)) + 1;
            const int activePlace =
                static_cast<int>(generated.below(static_cast<std::size_t>(count))) + 1;
            for (int place = 1; place <= count; ++place)
                tabs.push_back({browser, "Browser", std::to_string(window * 10), window,
                                safari ? "" : std::to_string(window * 100 + place), place, "T",
                                generated.oneOf(addresses), place == activePlace,
                                generated.oneIn(6)});
        }
    }
    return tabs;
}

Tabs shuffled(Tabs tabs, Generated& generated) {
    std::ranges::shuffle(tabs, generated.engine());
    return tabs;
}

bool contains(const Tabs& tabs, const BrowserTabSnapshot& tab) {
    return std::ranges::find(tabs, tab) != tabs.end();
}

using Copy = std::tuple<std::string, std::string, std::string>;
Copy copyOf(const BrowserTabSnapshot& tab) {
    return {tab.browserID, tab.windowID, Library::identity(tab.url)};
}

TEST(CleanupLaws, oneOfEachPageStaysInEachWindowAndItIsTheActiveOrTheLeftmost) {
    forSeeds(1000, [](Generated& generated) {
        const Tabs tabs = openTabs(generated);
        const Tabs going = duplicateAndEmptyCandidates(tabs);
        std::map<Copy, Tabs> groups;
        for (const auto& tab : tabs)
            if (!tab.isEmpty && Library::validatedURL(tab.url))
                groups[copyOf(tab)].push_back(tab);
        for (const auto& [page, group] : groups) {
            const auto kept = std::ranges::min_element(
                group, {}, [](const auto& tab) { return std::pair(!tab.isActive, tab.index); });
            for (const auto& tab : group)
                EXPECT_EQ(contains(going, tab), tab != *kept);
        }
    });
}

TEST(CleanupLaws, nothingButEmptyTabsAndCopiesOfPagesIsOffered) {
    forSeeds(1000, [](Generated& generated) {
        const Tabs tabs = openTabs(generated);
        for (const auto& tab : duplicateAndEmptyCandidates(tabs)) {
            const auto copies = std::ranges::count_if(tabs, [&](const auto& other) {
                return !other.isEmpty && copyOf(other) == copyOf(tab);
            });
            EXPECT_TRUE(tab.isEmpty || (copies > 1 && Library::validatedURL(tab.url)));
            EXPECT_TRUE(contains(tabs, tab));
        }
    });
}

TEST(CleanupLaws, theOrderOfTheReadingDoesNotMatter) {
    forSeeds(1000, [](Generated& generated) {
        const Tabs tabs = openTabs(generated);
        const Tabs other = shuffled(tabs, generated);
        EXPECT_EQ(duplicateAndEmptyCandidates(tabs), duplicateAndEmptyCandidates(other));
        EXPECT_EQ(domainCandidates(tabs, entries), domainCandidates(other, entries));
    });
}

TEST(CleanupLaws, thereIsNothingLeftToDoAfterTheCandidatesWereClosed) {
    forSeeds(1000, [](Generated& generated) {
        Tabs tabs = openTabs(generated);
        const Tabs going = duplicateAndEmptyCandidates(tabs);
        std::erase_if(tabs, [&](const auto& tab) { return contains(going, tab); });
        EXPECT_TRUE(duplicateAndEmptyCandidates(tabs).empty());
    });
}

TEST(CleanupLaws, plansAreSortedAndNameATabOnce) {
    forSeeds(1000, [](Generated& generated) {
        const Tabs tabs = openTabs(generated);
        for (const Tabs& plan :
             {duplicateAndEmptyCandidates(tabs), domainCandidates(tabs, entries)}) {
            EXPECT_TRUE(std::ranges::is_sorted(plan, {}, [](const auto& tab) {
                return std::tuple(tab.browserID, tab.windowIndex, tab.index);
            }));
            std::set<std::string> identities;
            for (const auto& tab : plan)
                EXPECT_TRUE(identities.insert(tab.id()).second);
        }
    });
}

TEST(CleanupLaws, moreWebsitesNeverTakeATabBack) {
    forSeeds(1000, [](Generated& generated) {
        const Tabs tabs = openTabs(generated);
        std::vector<std::string> few{generated.oneOf(entries)};
        auto more = few;
        more.push_back(generated.oneOf(entries));
        const Tabs byMore = domainCandidates(tabs, more);
        for (const auto& tab : domainCandidates(tabs, few))
            EXPECT_TRUE(contains(byMore, tab));
    });
}

TEST(CleanupLaws, aWebsiteTakesExactlyItselfAndWhatStandsBelowIt) {
    forSeeds(1000, [](Generated& generated) {
        const Tabs tabs = openTabs(generated);
        const std::string entry = generated.oneOf(entries);
        const Tabs going = domainCandidates(tabs, {entry});
        const auto wanted = normalizedDomain(entry);
        for (const auto& tab : tabs) {
            const auto domain = normalizedDomain(tab.domain());
            const bool within = wanted && domain && Library::validatedURL(tab.url) &&
                                (*domain == *wanted || domain->ends_with("." + *wanted));
            EXPECT_EQ(contains(going, tab), within) << tab.url << " by " << entry;
        }
    });
}

TEST(CleanupLaws, aNormalizedDomainNeedsNoFurtherCare) {
    const std::vector<std::string> pieces{"a", ".", "www.", "https://", "B", ":8", "/",
                                          "é", "@", " ",    "[::1]",    "%", "#",  "x.com"};
    forSeeds(20000, [&](Generated& generated) {
        const auto once = normalizedDomain(generated.textOf(pieces, 6));
        if (!once || once->starts_with("www.") || once->starts_with("."))
            return;
        EXPECT_EQ(normalizedDomain(*once), once);
    });
}

} // namespace
} // namespace brinmoor::TabCleanupPlanner

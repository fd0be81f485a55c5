#include "core/tabs/OpenBrowserTab.h"
#include "core/tabs/RankedTabs.h"
#include "core/tabs/TabCleanupPlanner.h"
#include "core/tabs/TabEntry.h"
#include "core/tabs/TabTarget.h"
#include "fuzz/Promise.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace brinmoor;
using fuzz::promise;

namespace {

/// Whatever is read as a tab's identity is written in a form that reads back as the same.
void checkEntries(std::string_view json) {
    const auto entries = decodeTabEntries(json);
    if (!entries)
        return;
    for (const TabEntry& entry : *entries) {
        if (!entry.closeTarget)
            continue;
        const std::string again =
            R"([{"url":"","title":"","closeTarget":)" + encoded(*entry.closeTarget) + "}]";
        const auto read = decodeTabEntries(again);
        promise(read && read->front().closeTarget == entry.closeTarget,
                "a target is read back as it was written");
    }
}

void checkPages(std::string_view json) {
    const auto tabs = decodeOpenTabs(json);
    if (!tabs || tabs->empty())
        return;
    const OpenBrowserTab& tab = tabs->front();
    std::string target = encoded(TabTarget{tab.windowID, tab.tabID, tab.index, tab.url, false});
    target.pop_back();
    const auto read =
        decodeOpenTabs("[" + target + R"(,"browserID":"","browserName":"","title":""}])");
    promise(read && read->front().url == tab.url && read->front().tabID == tab.tabID &&
                read->front().windowID == tab.windowID && read->front().index == tab.index,
            "a tab's target is read back as it was written");
    promise(rankedTabs(*tabs, "").size() == tabs->size(), "a blank query shows every tab");
    promise(rankedTabs(*tabs, tab.title).size() <= tabs->size(), "a query makes no tabs");
}

bool areAllOf(const std::vector<BrowserTabSnapshot>& plan,
              const std::vector<BrowserTabSnapshot>& tabs) {
    return std::ranges::all_of(plan, [&](const BrowserTabSnapshot& each) {
        return std::ranges::find(tabs, each) != tabs.end();
    });
}

void checkSnapshots(std::string_view json) {
    const auto tabs = decodeTabSnapshots(json);
    if (!tabs || tabs->empty())
        return;
    const auto copies = TabCleanupPlanner::duplicateAndEmptyCandidates(*tabs);
    promise(areAllOf(copies, *tabs), "only open tabs are planned");
    const bool hasPages = std::ranges::any_of(*tabs, [](const BrowserTabSnapshot& tab) {
        return !tab.isEmpty && tab.url.starts_with("http");
    });
    promise(!hasPages || copies.size() < tabs->size(), "of the pages at least one stays");
    const auto unwanted =
        TabCleanupPlanner::domainCandidates(*tabs, {tabs->front().domain(), tabs->back().url});
    promise(areAllOf(unwanted, *tabs), "only open tabs are planned");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view json(reinterpret_cast<const char*>(data), size);
    checkEntries(json);
    checkPages(json);
    checkSnapshots(json);
    return 0;
}

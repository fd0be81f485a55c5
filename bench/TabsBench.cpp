// What a keystroke in the tab search and a plan of the cleanup cost, beside copying the same tabs.
// Tabs are made of the sample links, as the scripts would give them.

#include "bench/SampleLinks.h"
#include "core/tabs/OpenBrowserTab.h"
#include "core/tabs/RankedTabs.h"
#include "core/tabs/TabCleanupPlanner.h"

#include <benchmark/benchmark.h>

namespace brinmoor {
namespace {

constexpr int tabsOfAWindow = 50;

template <class Tab>
Tab tabOf(const SavedLink& link, int number) {
    Tab tab;
    tab.browserID = "org.chromium.Chromium";
    tab.browserName = "Chromium";
    tab.windowID = std::to_string(1000 + number / tabsOfAWindow) + ".4711.0123456789abcdef";
    tab.tabID = std::to_string(100'000 + number) + ".4711.0123456789abcdef";
    tab.index = number % tabsOfAWindow + 1;
    tab.title = link.title;
    tab.url = link.url;
    return tab;
}

std::vector<OpenBrowserTab> pages(benchmark::State& state) {
    std::vector<OpenBrowserTab> tabs;
    for (const SavedLink& link : sampleLinks(static_cast<std::size_t>(state.range(0))))
        tabs.push_back(tabOf<OpenBrowserTab>(link, static_cast<int>(tabs.size())));
    return tabs;
}

/// Every third tab stands twice in its window.
std::vector<BrowserTabSnapshot> snapshots(benchmark::State& state) {
    std::vector<BrowserTabSnapshot> tabs;
    for (const SavedLink& link : sampleLinks(static_cast<std::size_t>(state.range(0)))) {
        const int number = static_cast<int>(tabs.size());
        tabs.push_back(tabOf<BrowserTabSnapshot>(link, number));
        tabs.back().windowIndex = number / tabsOfAWindow + 1;
        tabs.back().isEmpty = number % 20 == 0;
        if (number % 3 == 2)
            tabs.back().url = tabs[static_cast<std::size_t>(number - 2)].url;
    }
    return tabs;
}

void copyTabs(benchmark::State& state) {
    const auto tabs = pages(state);
    for (auto _ : state) {
        auto copy = tabs;
        benchmark::DoNotOptimize(copy.data());
    }
}

void rank(benchmark::State& state, const char* query) {
    const auto tabs = pages(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(rankedTabs(tabs, query));
    state.counters["found"] = static_cast<double>(rankedTabs(tabs, query).size());
}

void planDuplicates(benchmark::State& state) {
    const auto tabs = snapshots(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(TabCleanupPlanner::duplicateAndEmptyCandidates(tabs));
    state.SetComplexityN(state.range(0));
}

void planWebsites(benchmark::State& state) {
    const auto tabs = snapshots(state);
    std::vector<std::string> domains;
    for (std::size_t i = 0; i < 50; ++i)
        domains.push_back(tabs[i * 7 % tabs.size()].domain());
    for (auto _ : state)
        benchmark::DoNotOptimize(TabCleanupPlanner::domainCandidates(tabs, domains));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(copyTabs)->Arg(500)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(rank, nothingTyped, "")->Arg(500)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(rank, oneLetter, "e")->Arg(500)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(rank, twoWords, "chromium example")->Arg(500)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(rank, noMatch, "zqxj")->Arg(500)->Unit(benchmark::kMicrosecond);
BENCHMARK(planDuplicates)
    ->RangeMultiplier(2)
    ->Range(500, 8000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();
BENCHMARK(planWebsites)
    ->RangeMultiplier(2)
    ->Range(500, 8000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

} // namespace
} // namespace brinmoor

BENCHMARK_MAIN();

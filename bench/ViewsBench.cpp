// The lists of the library screen, made anew whenever they are read. Beside each what it can't do
// without: copying the links that it shows, or folding the tags that it counts.

#include "bench/Comparisons.h"
#include "bench/SampleLinks.h"
#include "core/library/LinkDay.h"
#include "core/library/TagSummary.h"
#include "core/search/LibraryFilter.h"
#include "core/search/LibraryLists.h"
#include "core/tags/LinkLearning.h"
#include "core/text/Fold.h"

#include <benchmark/benchmark.h>

#include <map>

namespace brinmoor {
namespace {

const std::vector<SavedLink>& library(std::int64_t size) {
    static std::map<std::int64_t, std::vector<SavedLink>> made;
    auto& links = made[size];
    if (links.empty())
        links = sampleLinks(static_cast<std::size_t>(size));
    return links;
}

const Instant now{8e8};

template <class Make>
void measure(benchmark::State& state, const Make& make) {
    const auto& links = library(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(make(links));
    state.SetComplexityN(state.range(0));
}

void copyLinks(benchmark::State& state) {
    measure(state, [](const auto& links) { return links; });
}

void foldTags(benchmark::State& state) {
    std::string folded;
    measure(state, [&](const auto& links) {
        for (const SavedLink& link : links)
            for (const std::string& tag : link.tags) {
                folded.clear();
                text::appendFolded(folded, tag);
                benchmark::DoNotOptimize(folded.data());
            }
        return 0;
    });
}

void takeDomains(benchmark::State& state) {
    measure(state, [](const auto& links) {
        for (const SavedLink& link : links)
            benchmark::DoNotOptimize(link.domain());
        return 0;
    });
}

void groupByDay(benchmark::State& state) {
    measure(state, [](const auto& links) {
        return LinkDay::group(pointers(links), now, "Europe/Berlin");
    });
}

/// The same when the links come in no order.
void groupShuffled(benchmark::State& state) {
    std::vector<SavedLink> links = library(state.range(0));
    for (std::size_t at = 0; at < links.size(); ++at)
        std::swap(links[at].createdAt, links[at * 7919 % links.size()].createdAt);
    for (auto _ : state)
        benchmark::DoNotOptimize(LinkDay::group(pointers(links), now, "Europe/Berlin"));
    state.SetComplexityN(state.range(0));
}

void bestMatches(benchmark::State& state) {
    measure(state, [](const auto& links) {
        return LinkDay::bestMatches(pointers(links), "learn design");
    });
}

void summarizeTags(benchmark::State& state) {
    measure(state, [](const auto& links) { return TagSummary::summarize(links); });
}

void sortTagsByUses(benchmark::State& state) {
    const auto summaries = TagSummary::summarize(library(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(TagSummary::sorted(summaries, TagSummarySortOrder::mostLinks));
    state.SetComplexityN(state.range(0));
}

void domainOptions(benchmark::State& state) {
    measure(state, LibraryLists::domainOptions);
}

void visible(benchmark::State& state, const LibraryFilter& filter) {
    measure(state, [&](const auto& links) { return filter.visibleLinks(links); });
}

void visibleLinks(benchmark::State& state) {
    visible(state, {});
}

void visibleOfSite(benchmark::State& state) {
    LibraryFilter filter;
    filter.selectedDomain = "site7.example.com";
    visible(state, filter);
}

void visibleOfTag(benchmark::State& state) {
    LibraryFilter filter;
    filter.selectedTag = "learning";
    visible(state, filter);
}

void suggestImportance(benchmark::State& state) {
    std::vector<SavedLink> links = library(state.range(0));
    for (std::size_t at = 0; at < links.size(); ++at)
        links[at].importance = at % 9 == 0 ? LinkImportance::notNeeded : LinkImportance::important;
    SavedLink link = links.front();
    link.importance.reset();
    link.note.clear();
    for (auto _ : state)
        benchmark::DoNotOptimize(LinkLearning::suggest(link, links));
    state.SetComplexityN(state.range(0));
}

constexpr auto unit = benchmark::kMillisecond;
void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
}
BENCHMARK(copyLinks)->Apply(sizes);
BENCHMARK(foldTags)->Apply(sizes);
BENCHMARK(takeDomains)->Apply(sizes);
BENCHMARK(groupByDay)->Apply(sizes);
BENCHMARK(groupShuffled)->Apply(sizes);
BENCHMARK(bestMatches)->Apply(sizes);
BENCHMARK(summarizeTags)->Apply(sizes);
BENCHMARK(sortTagsByUses)->Apply(sizes);
BENCHMARK(domainOptions)->Apply(sizes);
BENCHMARK(visibleLinks)->Apply(sizes);
BENCHMARK(visibleOfSite)->Apply(sizes);
BENCHMARK(visibleOfTag)->Apply(sizes);
BENCHMARK(suggestImportance)->Apply(sizes);

std::vector<Comparison> comparisons() {
    std::vector<Comparison> rows;
    const auto add = [&](const std::string& work, const std::string& name,
                         const std::string& beside, const std::string& other) {
        for (const std::string size : {"/1000", "/10000", "/100000"})
            rows.push_back({work + " of " + size.substr(1), name + size, beside, other + size});
    };
    add("days", "groupByDay", "copying the links", "copyLinks");
    add("days, links in no order", "groupShuffled", "copying the links", "copyLinks");
    add("best matches", "bestMatches", "copying the links", "copyLinks");
    add("visible links", "visibleLinks", "copying the links", "copyLinks");
    add("tag summaries", "summarizeTags", "folding the tags", "foldTags");
    add("sites", "domainOptions", "taking each domain", "takeDomains");
    add("visible links of a site", "visibleOfSite", "taking each domain", "takeDomains");
    add("visible links of a tag", "visibleOfTag", "folding the tags", "foldTags");
    return rows;
}

} // namespace
} // namespace brinmoor

int main(int argc, char** argv) {
    return brinmoor::runComparisons(argc, argv, brinmoor::comparisons());
}

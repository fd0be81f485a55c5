// How long tag suggestion takes over whole libraries, and what it is made of. The floor is the fold
// of all titles, which any suggestion has to do.

#include "bench/Comparisons.h"
#include "bench/SampleLinks.h"
#include "core/library/Library.h"
#include "core/tags/LinkAutoTagging.h"
#include "core/text/Fold.h"

#include <benchmark/benchmark.h>

namespace brinmoor {
namespace {

void suggestTags(benchmark::State& state) {
    const auto links = sampleLinks(static_cast<std::size_t>(state.range(0)));
    SavedLink link = links[links.size() / 2];
    link.url = "https://www.site1.example.com/new";
    for (auto _ : state)
        benchmark::DoNotOptimize(LinkAutoTagging::suggestions(link, links, 3));
}

void foldTitles(benchmark::State& state) {
    const auto links = sampleLinks(static_cast<std::size_t>(state.range(0)));
    std::string folded;
    for (auto _ : state) {
        for (const SavedLink& link : links) {
            folded.clear();
            text::appendFolded(folded, link.title);
            benchmark::DoNotOptimize(folded.data());
        }
    }
}

void takeIdentities(benchmark::State& state) {
    const auto links = sampleLinks(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        for (const SavedLink& link : links)
            benchmark::DoNotOptimize(Library::identity(link.url));
    }
}

BENCHMARK(suggestTags)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(foldTitles)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(takeIdentities)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brinmoor

int main(int argc, char** argv) {
    return brinmoor::runComparisons(
        argc, argv,
        {{"suggest tags from 10,000 links", "suggestTags/10000", "from 1,000", "suggestTags/1000"},
         {"suggest tags from 100,000 links", "suggestTags/100000", "from 10,000",
          "suggestTags/10000"},
         {"", "suggestTags/100000", "folding their titles", "foldTitles/100000"},
         {"", "suggestTags/100000", "their identities", "takeIdentities/100000"}});
}

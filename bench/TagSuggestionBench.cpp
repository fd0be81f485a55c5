// How long tag suggestion takes over whole libraries, and what it is made of. The floor is the fold
// of all titles, which any suggestion has to do.

#include "core/library/Library.h"
#include "core/tags/LinkAutoTagging.h"
#include "core/text/Fold.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace brinmoor {
namespace {

/// Words with the frequencies of a language without its few commonest words, which are too short
/// to be learned: the n-th is met in proportion to 1 / (n + 20).
class Words {
public:
    explicit Words(std::mt19937& random) : random_(random) {
        for (int i = 0; i < count; ++i)
            words_.push_back(word());
    }

    std::string next() {
        const double place =
            std::exp(std::uniform_real_distribution(0.0, std::log(count))(random_));
        return words_[static_cast<std::size_t>(place) - 1];
    }

private:
    static constexpr int count = 20000;
    static constexpr double commonest = 20;

    std::string word() {
        static const std::vector<std::string> syllables{
            "ma", "chi", "ne",   "learn", "ing", "re",  "ci",  "pes", "de",   "sign",
            "ed", "sto", "ries", "glas",  "ses", "Run", "Web", "dev", "tool", "data"};
        static const std::vector<std::string> foreign{"é", "ü", "日本", "мос", "ква", "ñ", "한"};
        std::string word;
        for (auto left = random_() % 3 + 1; left > 0; --left)
            word += syllables[random_() % syllables.size()];
        // Some 42 of 100 titles of seven words hold a letter that is not ASCII.
        if (random_() % 13 == 0)
            word += foreign[random_() % foreign.size()];
        return word;
    }

    std::mt19937& random_;
    std::vector<std::string> words_;
};

std::vector<SavedLink> library(std::size_t size) {
    std::mt19937 random(1);
    Words words(random);
    std::vector<SavedLink> links;
    for (std::size_t i = 0; i < size; ++i) {
        SavedLink link;
        link.url = "https://www.site" + std::to_string(random() % (size / 10 + 1)) +
                   ".example.com/articles/" + std::to_string(i) +
                   "?ref=feed&page=" + std::to_string(random() % 10);
        for (int left = 7; left > 0; --left)
            link.title += words.next() + " ";
        link.title.pop_back();
        for (auto left = random() % 4; left > 0; --left)
            link.tags.push_back(words.next());
        links.push_back(std::move(link));
    }
    return links;
}

void suggestTags(benchmark::State& state) {
    const auto links = library(static_cast<std::size_t>(state.range(0)));
    SavedLink link = links[links.size() / 2];
    link.url = "https://www.site1.example.com/new";
    for (auto _ : state)
        benchmark::DoNotOptimize(LinkAutoTagging::suggestions(link, links, 3));
    state.SetComplexityN(state.range(0));
}

void foldTitles(benchmark::State& state) {
    const auto links = library(static_cast<std::size_t>(state.range(0)));
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
    const auto links = library(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        for (const SavedLink& link : links)
            benchmark::DoNotOptimize(Library::identity(link.url));
    }
}

BENCHMARK(suggestTags)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(foldTitles)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(takeIdentities)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brinmoor

BENCHMARK_MAIN();

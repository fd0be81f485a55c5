// What is asked of every link: its folded texts and its identity.

#include "bench/library/BenchedLibrary.h"
#include "core/text/Fold.h"

#include <benchmark/benchmark.h>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <cstring>
#include <vector>

namespace brinmoor::bench {
namespace {

/// Titles side by side in memory, so that the work is measured and not the way to the texts.
const std::vector<std::string_view>& titles(std::int64_t count) {
    static std::string bytes;
    static std::vector<std::string_view> views;
    if (!views.empty())
        return views;
    for (const SavedLink& link : library(count).links)
        bytes += link.title;
    std::size_t at = 0;
    for (const SavedLink& link : library(count).links) {
        views.push_back(std::string_view(bytes).substr(at, link.title.size()));
        at += link.title.size();
    }
    return views;
}

template <class Work>
void overTitles(benchmark::State& state, const Work& work) {
    std::int64_t bytes = 0;
    for (const std::string_view title : titles(state.range(0)))
        bytes += std::ssize(title);
    for (auto _ : state)
        for (const std::string_view title : titles(state.range(0)))
            work(title);
    state.SetBytesProcessed(state.iterations() * bytes);
}

void fold(benchmark::State& state) {
    std::string target;
    overTitles(state, [&](std::string_view title) {
        target.clear();
        text::appendFolded(target, title);
        benchmark::DoNotOptimize(target.data());
    });
}

void foldInRoom(benchmark::State& state) {
    text::FoldRoom room;
    overTitles(state, [&](std::string_view title) {
        benchmark::DoNotOptimize(room.folded(title).data());
    });
}

void copyTitles(benchmark::State& state) {
    std::string target;
    overTitles(state, [&](std::string_view title) {
        target.assign(title);
        benchmark::DoNotOptimize(target.data());
    });
}

void foldByIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* decomposition = icu::Normalizer2::getNFDInstance(status);
    overTitles(state, [&](std::string_view title) {
        const auto decomposed = decomposition->normalize(
            icu::UnicodeString::fromUTF8({title.data(), static_cast<int32_t>(title.size())}),
            status);
        icu::UnicodeString bare;
        for (int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1))
            if ((U_MASK(u_charType(decomposed.char32At(at))) & U_GC_M_MASK) == 0)
                bare.append(decomposed.char32At(at));
        std::string target;
        benchmark::DoNotOptimize(bare.foldCase().toUTF8String(target).data());
    });
}

/// Where they lie in the records: two texts of each link, each in a place of its own.
void foldInPlace(benchmark::State& state) {
    const Library& source = library(state.range(0));
    std::string target;
    std::int64_t bytes = 0;
    for (auto _ : state)
        for (const SavedLink& link : source.links)
            for (const std::string* text : {&link.title, &link.url}) {
                target.clear();
                text::appendFolded(target, *text);
                benchmark::DoNotOptimize(target.data());
                bytes += std::ssize(*text);
            }
    state.SetBytesProcessed(bytes);
}

void copyInPlace(benchmark::State& state) {
    const Library& source = library(state.range(0));
    std::string target;
    std::int64_t bytes = 0;
    for (auto _ : state)
        for (const SavedLink& link : source.links)
            for (const std::string* text : {&link.title, &link.url}) {
                target.assign(*text);
                benchmark::DoNotOptimize(target.data());
                bytes += std::ssize(*text);
            }
    state.SetBytesProcessed(bytes);
}

void identity(benchmark::State& state) {
    const Library& source = library(state.range(0));
    for (auto _ : state)
        for (const SavedLink& link : source.links)
            benchmark::DoNotOptimize(Library::identity(link.url));
}

void copyAddresses(benchmark::State& state) {
    const Library& source = library(state.range(0));
    for (auto _ : state)
        for (const SavedLink& link : source.links)
            benchmark::DoNotOptimize(std::string(link.url));
}

void insertOne(benchmark::State& state) {
    Library target = library(state.range(0));
    SavedLink link = target.links.front();
    std::int64_t number = 0;
    for (auto _ : state) {
        link.url = "https://new.example.org/" + std::to_string(++number);
        benchmark::DoNotOptimize(target.insert({link}));
    }
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(fold)->Arg(100'000)->Unit(unit);
BENCHMARK(foldInRoom)->Arg(100'000)->Unit(unit);
BENCHMARK(copyTitles)->Arg(100'000)->Unit(unit);
BENCHMARK(foldByIcu)->Arg(100'000)->Unit(unit);
BENCHMARK(foldInPlace)->Arg(100'000)->Unit(unit);
BENCHMARK(copyInPlace)->Arg(100'000)->Unit(unit);
BENCHMARK(identity)->Arg(100'000)->Unit(unit);
BENCHMARK(copyAddresses)->Arg(100'000)->Unit(unit);
BENCHMARK(insertOne)->Arg(100'000)->Unit(unit);

} // namespace
} // namespace brinmoor::bench

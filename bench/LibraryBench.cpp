// The library as a whole: written, read, saved, loaded, folded and asked for identities.
// Peers stand beside the product's own ways, to be compared in one run:
//     LibraryBench --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true

#include "core/library/LibraryFile.h"
#include "core/text/Fold.h"

#include <benchmark/benchmark.h>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <random>

namespace brinmoor {
namespace {

constexpr std::array asciiWords{"library", "of", "Links", "saved", "the", "and", "Guide", "how"};
constexpr std::array otherWords{"Résumé",  "Überblick", "日本語の", "タイトル",
                                "новости", "Москва",    "한국어",   "Ελλάδα"};

std::string randomTitle(std::mt19937_64& random) {
    const bool isAscii = random() % 100 < 58;
    std::string title;
    for (int words = 0; words < 7; ++words) {
        const bool takesOther = !isAscii && random() % 2 == 0;
        title += takesOther ? otherWords[random() % 8] : asciiWords[random() % 8];
        title += ' ';
    }
    return title;
}

Library makeLibrary(std::size_t count) {
    std::mt19937_64 random(1);
    Library library;
    library.links.resize(count);
    for (SavedLink& link : library.links) {
        for (auto& byte : link.id.bytes)
            byte = static_cast<std::uint8_t>(random());
        link.url = "https://www.site" + std::to_string(random() % 5000) + ".example.org/articles/" +
                   std::to_string(random() % 100000) + "/the-title-of-a-page?ref=feed";
        link.title = randomTitle(random);
        link.iconURL = "https://www.example.org/favicon.ico";
        link.browser = "Google Chrome";
        link.collection = "Inbox";
        link.createdAt.seconds = 7.5e8 + static_cast<double>(random() % 100'000'000'000) / 1000;
        link.tags = {"reading list", "news"};
    }
    return library;
}

const Library& library(std::int64_t count) {
    static std::int64_t madeFor = 0;
    static Library made;
    if (madeFor != count)
        made = makeLibrary(static_cast<std::size_t>(madeFor = count));
    return made;
}

void encode(benchmark::State& state) {
    const Library& source = library(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeLibrary(source));
}

void decode(benchmark::State& state) {
    const std::string text = encodeLibrary(library(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeLibrary(text));
}

std::string filePath() {
    return std::filesystem::temp_directory_path() / "brinmoor-bench.json";
}

void save(benchmark::State& state) {
    const LibraryFile file(filePath());
    for (auto _ : state)
        if (!file.save(library(state.range(0))).ok())
            state.SkipWithError("not saved");
}

void load(benchmark::State& state) {
    const LibraryFile file(filePath());
    if (!file.save(library(state.range(0))).ok())
        state.SkipWithError("not saved");
    for (auto _ : state)
        benchmark::DoNotOptimize(file.load());
    std::filesystem::remove(filePath());
}

template <class Fold>
void overTexts(benchmark::State& state, const Fold& fold) {
    const Library& source = library(state.range(0));
    std::int64_t bytes = 0;
    for (auto _ : state)
        for (const SavedLink& link : source.links)
            for (const std::string* text : {&link.title, &link.url}) {
                fold(*text);
                bytes += static_cast<std::int64_t>(text->size());
            }
    state.SetBytesProcessed(bytes);
}

void fold(benchmark::State& state) {
    std::string target;
    overTexts(state, [&](const std::string& text) {
        target.clear();
        text::appendFolded(target, text);
        benchmark::DoNotOptimize(target.data());
    });
}

void foldByIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* decomposition = icu::Normalizer2::getNFDInstance(status);
    overTexts(state, [&](const std::string& text) {
        icu::UnicodeString bare;
        const auto decomposed =
            decomposition->normalize(icu::UnicodeString::fromUTF8(text), status);
        for (int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1))
            if ((U_MASK(u_charType(decomposed.char32At(at))) & U_GC_M_MASK) == 0)
                bare.append(decomposed.char32At(at));
        std::string target;
        benchmark::DoNotOptimize(bare.foldCase().toUTF8String(target).data());
    });
}

void copyTexts(benchmark::State& state) {
    std::array<char, 4096> target{};
    overTexts(state, [&](const std::string& text) {
        std::memcpy(target.data(), text.data(), text.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    });
}

void identity(benchmark::State& state) {
    for (auto _ : state)
        for (const SavedLink& link : library(state.range(0)).links)
            benchmark::DoNotOptimize(Library::identity(link.url));
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
BENCHMARK(encode)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(decode)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(save)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(load)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(copyTexts)->Arg(100'000)->Unit(unit);
BENCHMARK(fold)->Arg(100'000)->Unit(unit);
BENCHMARK(foldByIcu)->Arg(100'000)->Unit(unit);
BENCHMARK(identity)->Arg(100'000)->Unit(unit);
BENCHMARK(insertOne)->Arg(100'000)->Unit(unit);

} // namespace
} // namespace brinmoor

BENCHMARK_MAIN();

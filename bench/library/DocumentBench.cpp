// The document between its value and its bytes, in memory.

#include "bench/library/BenchedLibrary.h"
#include "core/library/LibraryDocument.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <optional>
#include <vector>

namespace brinmoor::bench {
namespace {

bool consider(std::string_view piece) {
    benchmark::DoNotOptimize(piece.data());
    benchmark::ClobberMemory();
    return true;
}

/// As a file is written: piece by piece, nothing kept.
void serialise(benchmark::State& state) {
    const Library& source = library(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(document::write(source, consider));
    state.SetBytesProcessed(state.iterations() * std::ssize(document(state.range(0))));
}

void writeInto(std::string& target, const Library& source) {
    target.clear();
    benchmark::DoNotOptimize(document::write(source, [&](std::string_view piece) {
        target += piece;
        return true;
    }));
    benchmark::DoNotOptimize(target.data());
}

/// The whole, into memory that was used before.
void serialiseWhole(benchmark::State& state) {
    const Library& source = library(state.range(0));
    std::string target;
    writeInto(target, source);
    for (auto _ : state)
        writeInto(target, source);
}

void copyDocument(benchmark::State& state) {
    const std::string& source = document(state.range(0));
    std::vector<char> target(source.size());
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), source.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * std::ssize(source));
}

void load(benchmark::State& state) {
    const LibraryFile file(documentPath(state.range(0)));
    for (auto _ : state) {
        std::optional loaded(file.load());
        benchmark::DoNotOptimize(loaded);
        outsideTheClock(state, [&] { loaded.reset(); });
    }
}

void readFile(benchmark::State& state) {
    const std::string& path = documentPath(state.range(0));
    std::string bytes;
    for (auto _ : state) {
        readWhole(path, bytes);
        benchmark::DoNotOptimize(bytes.data());
    }
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(serialise)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(serialiseWhole)->Arg(100'000)->Unit(unit);
BENCHMARK(copyDocument)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(load)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit);
BENCHMARK(readFile)->Arg(100'000)->Unit(unit);

} // namespace
} // namespace brinmoor::bench

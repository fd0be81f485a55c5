#pragma once

#include "core/library/Library.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace brinmoor::bench {

/// A library of so many sample links. The last one made is kept.
[[nodiscard]] const Library& library(std::int64_t count);
/// Its bytes in the file.
[[nodiscard]] const std::string& document(std::int64_t count);
/// A file that holds them, made at the first call and removed at the end of the program.
[[nodiscard]] const std::string& documentPath(std::int64_t count);

/// The whole file, read with plain calls into `bytes`, with room for a reader's padding.
void readWhole(const std::string& path, std::string& bytes);

/// Undoes what was measured: a program keeps what it loads.
template <class Work>
void outsideTheClock(benchmark::State& state, const Work& work) {
    state.PauseTiming();
    work();
    state.ResumeTiming();
}

} // namespace brinmoor::bench

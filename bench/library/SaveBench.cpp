// Saving to a real disk, beside the least that a safe write of the same bytes takes.

#include "bench/library/BenchedLibrary.h"
#include "core/library/LibraryFile.h"

#include <benchmark/benchmark.h>

#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace brinmoor::bench {
namespace {

std::string besideDocument(std::int64_t count, std::string_view name) {
    return std::filesystem::path(documentPath(count)).parent_path() / name;
}

void save(benchmark::State& state) {
    const Library& source = library(state.range(0));
    const LibraryFile file(besideDocument(state.range(0), "saved.json"));
    for (auto _ : state)
        if (!file.save(source).ok())
            state.SkipWithError("not saved");
}

/// One write, flush, rename, flush of the folder.
bool writeBarely(const std::string& bytes, const std::string& path) {
    const std::string temporary = path + ".tmp";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    bool ok = ::write(file, bytes.data(), bytes.size()) == std::ssize(bytes);
    ok = ::fsync(file) == 0 && ok;
    ok = ::close(file) == 0 && ok;
    ok = ::rename(temporary.c_str(), path.c_str()) == 0 && ok;
    const std::string folderPath = std::filesystem::path(path).parent_path();
    const int folder = ::open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ok = ::fsync(folder) == 0 && ok;
    return ::close(folder) == 0 && ok;
}

void writeBareBytes(benchmark::State& state) {
    const std::string& bytes = document(state.range(0));
    const std::string path = besideDocument(state.range(0), "bare.json");
    for (auto _ : state)
        if (!writeBarely(bytes, path))
            state.SkipWithError("not written");
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(save)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit)->UseRealTime();
BENCHMARK(writeBareBytes)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(unit)->UseRealTime();

} // namespace
} // namespace brinmoor::bench

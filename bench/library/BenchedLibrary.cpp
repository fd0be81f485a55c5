#include "bench/library/BenchedLibrary.h"

#include "bench/SampleLinks.h"
#include "core/library/LibraryFile.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brinmoor::bench {
namespace {

constexpr std::size_t padding = 64;

/// A folder that goes with the program.
struct Folder {
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("brinmoor-bench-" + std::to_string(::getpid()));
    Folder() { std::filesystem::create_directories(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
};

} // namespace

const Library& library(std::int64_t count) {
    static std::map<std::int64_t, Library> made;
    Library& result = made[count];
    if (result.links.empty())
        result.links = sampleLinks(static_cast<std::size_t>(count));
    return result;
}

const std::string& document(std::int64_t count) {
    static std::map<std::int64_t, std::string> made;
    std::string& result = made[count];
    if (result.empty())
        result = encodeLibrary(library(count));
    return result;
}

const std::string& documentPath(std::int64_t count) {
    static const Folder folder;
    static std::map<std::int64_t, std::string> made;
    std::string& result = made[count];
    if (result.empty()) {
        result = folder.path / (std::to_string(count) + ".json");
        std::ofstream(result, std::ios::binary) << document(count);
    }
    return result;
}

void readWhole(const std::string& path, std::string& bytes) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || ::fstat(file, &status) != 0)
        std::abort();
    bytes.resize(static_cast<std::size_t>(status.st_size) + padding);
    std::size_t have = 0;
    for (ssize_t got = 1; got > 0; have += static_cast<std::size_t>(got))
        if ((got = ::read(file, bytes.data() + have, bytes.size() - have)) < 0)
            std::abort();
    ::close(file);
    bytes.resize(have);
}

} // namespace brinmoor::bench

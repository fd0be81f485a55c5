#include "platform/linux/AtomicFile.h"

#include "core/library/FileReplacement.h"
#include "platform/linux/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;
using Outcome = Result<Done, std::error_code>;

Failure<std::error_code> lastFailure() {
    return failure(std::error_code(errno, std::generic_category()));
}

Outcome makeFolder(const fs::path& folder) {
    if (folder.empty() || ::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST)
        return Done{};
    if (errno != ENOENT || folder == folder.parent_path())
        return lastFailure();
    if (auto parent = makeFolder(folder.parent_path()); !parent)
        return parent;
    if (::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST)
        return Done{};
    return lastFailure();
}

} // namespace

Outcome replaceFile(const std::string& path, std::string_view contents) {
    static FileSystem system;
    const FileContent content = [&](const ContentSink& sink) { return sink(contents); };
    constexpr auto unlimited = std::numeric_limits<std::uint64_t>::max();
    if (const int error = replaceFile(system, path, content, unlimited))
        return failure(std::error_code(error, std::generic_category()));
    return Done{};
}

Outcome makeFolders(const std::string& folder) {
    return makeFolder(folder);
}

Result<std::string, std::error_code> readFile(const std::string& path, std::size_t limit) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file)
        return lastFailure();
    std::string contents;
    std::array<char, 16384> buffer{};
    while (true) {
        const auto count = ::read(file.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return lastFailure();
        if (count == 0)
            return contents;
        contents.append(buffer.data(), static_cast<std::size_t>(count));
        if (contents.size() > limit)
            return failure(std::make_error_code(std::errc::file_too_large));
    }
}

std::string wordsFor(const std::error_code& failed) {
    return failed.message();
}

} // namespace brinmoor

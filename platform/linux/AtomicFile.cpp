#include "platform/linux/AtomicFile.h"

#include "platform/linux/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
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

Outcome writeAll(int file, std::string_view contents) {
    while (!contents.empty()) {
        const auto count = ::write(file, contents.data(), contents.size());
        if (count < 0 && errno != EINTR)
            return lastFailure();
        if (count > 0)
            contents.remove_prefix(static_cast<std::size_t>(count));
    }
    return Done{};
}

Outcome flush(int file) {
    if (::fsync(file) != 0)
        return lastFailure();
    return Done{};
}

Outcome flushFolder(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened)
        return lastFailure();
    return flush(opened.get());
}

Outcome writeAndRename(int file, const std::string& temporary, const fs::path& target,
                       std::string_view contents) {
    if (auto written = writeAll(file, contents); !written)
        return written;
    if (auto flushed = flush(file); !flushed)
        return flushed;
    if (::rename(temporary.c_str(), target.c_str()) != 0)
        return lastFailure();
    return Done{};
}

/// The file behind symbolic links; the path itself when nothing stands there.
fs::path behindLinks(const std::string& path) {
    std::error_code ignored;
    auto target = fs::canonical(path, ignored);
    return target.empty() ? fs::path(path) : target;
}

} // namespace

Outcome replaceFile(const std::string& path, std::string_view contents) {
    const auto target = behindLinks(path);
    const auto folder = target.parent_path();
    if (auto made = makeFolder(folder); !made)
        return made;
    std::string temporary = target.string() + "." + std::string(6, 'X');
    const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file)
        return lastFailure();
    if (auto written = writeAndRename(file.get(), temporary, target, contents); !written) {
        ::unlink(temporary.c_str());
        return written;
    }
    return flushFolder(folder);
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

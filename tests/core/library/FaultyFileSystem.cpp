#include "tests/core/library/FaultyFileSystem.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>

namespace brinmoor::tests {

bool FaultyFileSystem::fails(Call call) {
    const int count = ++counts_[call];
    const auto fault = faults_.find(call);
    if (fault == faults_.end() || count < fault->second.nth ||
        count >= fault->second.nth + fault->second.times)
        return false;
    errno = fault->second.error;
    return true;
}

int FaultyFileSystem::open(const std::string& path, int flags, mode_t mode) {
    const Call call = (flags & O_TMPFILE) == O_TMPFILE ? Call::openNameless : Call::open;
    return fails(call) ? -1 : FileSystem::open(path, flags, mode);
}

int FaultyFileSystem::close(int file) {
    const int result = FileSystem::close(file);
    return fails(Call::close) ? -1 : result;
}

int FaultyFileSystem::status(int file, struct stat& result) {
    return fails(Call::status) ? -1 : FileSystem::status(file, result);
}

ssize_t FaultyFileSystem::read(int file, void* bytes, std::size_t size) {
    return fails(Call::read) ? -1 : FileSystem::read(file, bytes, size);
}

ssize_t FaultyFileSystem::write(int file, const void* bytes, std::size_t size) {
    return fails(Call::write) ? -1 : FileSystem::write(file, bytes, std::min(size, mostAtOnce_));
}

int FaultyFileSystem::flush(int file) {
    struct stat opened {};
    const bool isFolder = FileSystem::status(file, opened) == 0 && S_ISDIR(opened.st_mode);
    return fails(isFolder ? Call::flushFolder : Call::flush) ? -1 : FileSystem::flush(file);
}

int FaultyFileSystem::link(int file, const std::string& path) {
    return fails(Call::link) ? -1 : FileSystem::link(file, path);
}

int FaultyFileSystem::rename(const std::string& from, const std::string& to) {
    return fails(Call::rename) ? -1 : FileSystem::rename(from, to);
}

int FaultyFileSystem::makeFolder(const std::string& path, mode_t mode) {
    return fails(Call::makeFolder) ? -1 : FileSystem::makeFolder(path, mode);
}

} // namespace brinmoor::tests

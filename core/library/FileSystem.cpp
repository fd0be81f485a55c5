#include "core/library/FileSystem.h"

#include <array>
#include <climits>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace brinmoor {

int FileSystem::open(const std::string& path, int flags, mode_t mode) {
    return ::open(path.c_str(), flags | O_CLOEXEC, mode);
}

int FileSystem::close(int file) {
    return ::close(file);
}

int FileSystem::status(int file, struct stat& result) {
    return ::fstat(file, &result);
}

ssize_t FileSystem::read(int file, void* bytes, std::size_t size) {
    return ::read(file, bytes, size);
}

ssize_t FileSystem::write(int file, const void* bytes, std::size_t size) {
    return ::write(file, bytes, size);
}

int FileSystem::flush(int file) {
    return ::fsync(file);
}

void FileSystem::startWriteBack(int file, off_t from, off_t length) {
#if defined(__linux__)
    ::sync_file_range(file, from, length, SYNC_FILE_RANGE_WRITE);
#else
    (void)file, (void)from, (void)length;
#endif
}

int FileSystem::link(int file, const std::string& path) {
    const std::string name = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, name.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

int FileSystem::rename(const std::string& from, const std::string& to) {
    return ::rename(from.c_str(), to.c_str());
}

int FileSystem::remove(const std::string& path) {
    return ::unlink(path.c_str());
}

int FileSystem::makeFolder(const std::string& path, mode_t mode) {
    return ::mkdir(path.c_str(), mode);
}

int FileSystem::readLink(const std::string& path, std::string& target) {
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length = ::readlink(path.c_str(), buffer.data(), buffer.size());
    if (length < 0)
        return -1;
    target.assign(buffer.data(), static_cast<std::size_t>(length));
    return 0;
}

} // namespace brinmoor

#pragma once

#include <cstddef>
#include <string>

#include <sys/stat.h>
#include <sys/types.h>

namespace brinmoor {

/// The calls with which files are read and written, one for one: each gives what the call of its
/// name gives and sets errno. Tests override one to let it fail.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual int open(const std::string& path, int flags, mode_t mode);
    virtual int close(int file);
    virtual int status(int file, struct stat& result);
    virtual ssize_t read(int file, void* bytes, std::size_t size);
    virtual ssize_t write(int file, const void* bytes, std::size_t size);
    virtual int flush(int file); ///< fsync
    /// Asks for the pages of a range to be written soon; no promise, so no result.
    virtual void startWriteBack(int file, off_t from, off_t length);
    /// Gives a file that was opened without a name this one.
    virtual int link(int file, const std::string& path);
    virtual int rename(const std::string& from, const std::string& to);
    virtual int remove(const std::string& path); ///< unlink
    virtual int makeFolder(const std::string& path, mode_t mode);
    /// Where a symbolic link leads; -1 with EINVAL when it is none.
    virtual int readLink(const std::string& path, std::string& target);
};

/// An open file that is closed at the end.
class OpenFile {
public:
    OpenFile(FileSystem& system, int descriptor) : system_(&system), descriptor_(descriptor) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (isOpen())
            system_->close(descriptor_);
    }

    [[nodiscard]] bool isOpen() const noexcept { return descriptor_ >= 0; }
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

    /// Closes now, for a caller that wants to know how it went.
    int close() {
        const int result = system_->close(descriptor_);
        descriptor_ = -1;
        return result;
    }

private:
    FileSystem* system_;
    int descriptor_;
};

} // namespace brinmoor

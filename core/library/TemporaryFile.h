#pragma once

#include "core/library/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// A file being written beside the one that it will replace; gone at the end unless it did.
/// Every operation gives false on failure, after which error() tells the errno.
class TemporaryFile {
public:
    /// A file without a name vanishes even when the process is killed. Not every file system knows
    /// such files, and naming them later needs /proc.
    enum class Naming { whenComplete, atOnce };

    TemporaryFile(FileSystem& system, std::string folder, Naming naming);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    /// Opened by the constructor: false when that failed.
    [[nodiscard]] bool isOpen() const noexcept { return file_ && file_->isOpen(); }
    [[nodiscard]] bool write(std::string_view bytes);
    /// Flushes what was written, gives the file its name and closes it.
    [[nodiscard]] bool complete();
    /// Puts the completed file at `target`, over whatever stands there.
    [[nodiscard]] bool moveTo(const std::string& target);

    [[nodiscard]] int error() const noexcept { return error_; }
    [[nodiscard]] std::uint64_t size() const noexcept { return size_; }
    /// Whether it failed for want of a name, so that one named at once may do.
    [[nodiscard]] bool isNameRefused() const noexcept { return isNameRefused_; }

private:
    bool fail();
    [[nodiscard]] bool openNamed();
    [[nodiscard]] bool takeName();
    template <class Attempt>
    [[nodiscard]] bool tryNames(const Attempt& attempt);

    FileSystem& system_;
    std::string folder_;
    std::string name_; ///< empty while it has none
    std::optional<OpenFile> file_;
    std::uint64_t size_ = 0;
    std::uint64_t sentBack_ = 0;
    int error_ = 0;
    bool isNameRefused_ = false;
};

} // namespace brinmoor

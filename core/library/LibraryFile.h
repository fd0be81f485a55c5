#pragma once

#include "core/Result.h"
#include "core/library/Library.h"

#include <string>
#include <string_view>

namespace brinmoor {

/// Why a document could not be read or written.
struct FileError {
    enum class Cause {
        system,         ///< the operating system refused; `code` is its errno
        notJson,        ///< a syntax error, or bytes that are not UTF-8
        wrongShape,     ///< JSON, but a required key is missing, of another type or of a bad value
        unknownVersion, ///< a document of another format version
        tooLarge,       ///< more than the 4 GiB that the reader takes
    };
    Cause cause = Cause::system;
    int code = 0;

    /// One sentence for the user, ending with a full stop.
    [[nodiscard]] std::string description() const;

    friend bool operator==(const FileError&, const FileError&) = default;
};

/// The document as the bytes of its file: pretty-printed JSON with sorted keys, "/" as "\/".
[[nodiscard]] std::string encodeLibrary(const Library& library);
/// Reads the whole document or nothing of it. Unknown keys are ignored.
[[nodiscard]] Result<Library, FileError> decodeLibrary(std::string_view json);

/// The one reader and writer of a document in a file. Blocks the calling thread.
class LibraryFile {
public:
    explicit LibraryFile(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] const std::string& path() const noexcept { return path_; }

    /// A new Library when no file exists; the file is never changed.
    [[nodiscard]] Result<Library, FileError> load() const;

    /// Makes the missing folders, writes a temporary file beside the target, flushes it, renames
    /// it over the target and flushes the folder: the file is the old one or the new one, whole.
    /// A failure leaves the old file and no temporary one.
    [[nodiscard]] Result<Done, FileError> save(const Library& library) const;

private:
    std::string path_;
};

} // namespace brinmoor

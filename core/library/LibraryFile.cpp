#include "core/library/LibraryFile.h"

#include "core/library/FileReplacement.h"
#include "core/library/LargeMemory.h"
#include "core/library/LibraryDocument.h"
#include "core/library/LibraryStorage.h"

#include <cerrno>
#include <memory>
#include <new>
#include <system_error>

#include <fcntl.h>

namespace brinmoor {

namespace {

Failure<FileError> systemFailure(int code) {
    return failure(FileError{FileError::Cause::system, code});
}

Failure<FileError> refusal(FileError::Cause cause) {
    return failure(FileError{cause, 0});
}

/// The bytes of an open file, with the reader's padding behind them.
struct Bytes {
    std::unique_ptr<char[]> memory;
    std::size_t size = 0;
};

/// Gives 0 or the errno; the file's length may have changed since `expected` was read.
int readAll(FileSystem& system, const OpenFile& file, std::size_t expected, Bytes& bytes) {
    bytes.memory = std::make_unique_for_overwrite<char[]>(expected + document::readerPadding);
    expectFullUse(bytes.memory.get(), expected);
    while (bytes.size < expected) {
        const ssize_t count =
            system.read(file.descriptor(), bytes.memory.get() + bytes.size, expected - bytes.size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            return 0;
        bytes.size += static_cast<std::size_t>(count);
    }
    return 0;
}

Result<Library, FileError> loadOpened(FileSystem& system, const OpenFile& file) {
    struct stat status {};
    if (system.status(file.descriptor(), status) != 0)
        return systemFailure(errno);
    if (!S_ISREG(status.st_mode))
        return systemFailure(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > document::largestSize)
        return refusal(FileError::Cause::tooLarge);
    Bytes bytes;
    if (const int error = readAll(system, file, static_cast<std::size_t>(size), bytes))
        return systemFailure(error);
    return document::readPadded(bytes.memory.get(), bytes.size);
}

FileSystem& realFileSystem() {
    static FileSystem system;
    return system;
}

std::string systemDescription(int code) {
    switch (code) {
    case EACCES:
    case EPERM:
        return "You don’t have permission to use this file or its folder.";
    case ENOSPC:
    case EDQUOT:
        return "There isn’t enough space on the disk.";
    case EROFS:
        return "The disk can only be read, not written.";
    case EFBIG:
        return "The file would be larger than is allowed.";
    case EISDIR:
        return "There is a folder in the place of the file.";
    case ENOTDIR:
        return "A part of the path isn’t a folder.";
    case EIO:
        return "The disk reported an error.";
    default:
        return "The system reports: " + std::generic_category().message(code) + '.';
    }
}

} // namespace

std::string FileError::description() const {
    switch (cause) {
    case Cause::system:
        return systemDescription(code);
    case Cause::notJson:
        return "The file isn’t valid JSON.";
    case Cause::wrongShape:
        return "The file isn’t a Brinmoor library.";
    case Cause::unknownVersion:
        return "The file has a format version that this Brinmoor doesn’t know.";
    case Cause::tooLarge:
        return "The file is too large.";
    }
    return {};
}

Result<Library, FileError> storage::load(FileSystem& system, const std::string& path) {
    // Whatever stands there may be a pipe: opening it must not wait for a writer.
    const OpenFile file(system, system.open(path, O_RDONLY | O_NONBLOCK, 0));
    if (!file.isOpen())
        return errno == ENOENT ? Result<Library, FileError>(Library()) : systemFailure(errno);
    try {
        return loadOpened(system, file);
    } catch (const std::bad_alloc&) {
        return systemFailure(ENOMEM);
    }
}

Result<Done, FileError> storage::save(FileSystem& system, const std::string& path,
                                      const Library& library) {
    if (!document::isWritable(library))
        return refusal(FileError::Cause::wrongShape);
    const FileContent content = [&](const ContentSink& sink) {
        return document::write(library, sink);
    };
    if (const int error = replaceFile(system, path, content, document::largestSize))
        return error == EFBIG ? refusal(FileError::Cause::tooLarge) : systemFailure(error);
    return Done{};
}

Result<Library, FileError> LibraryFile::load() const {
    return storage::load(realFileSystem(), path_);
}

Result<Done, FileError> LibraryFile::save(const Library& library) const {
    return storage::save(realFileSystem(), path_, library);
}

} // namespace brinmoor

#pragma once

#include "core/library/FileSystem.h"
#include "core/library/LibraryFile.h"

/// What LibraryFile does, on file system calls of the caller's choice. For it and its tests.
namespace brinmoor::storage {

[[nodiscard]] Result<Library, FileError> load(FileSystem& system, const std::string& path);
[[nodiscard]] Result<Done, FileError> save(FileSystem& system, const std::string& path,
                                           const Library& library);

} // namespace brinmoor::storage

#pragma once

#include "core/Result.h"

#include <string>
#include <string_view>
#include <system_error>

namespace brinmoor {

/// Replaces a file's contents whole, as the library's own file is replaced: the old file or the new
/// one stands there at any moment. Missing folders are made for the user alone; a symbolic link
/// survives. After a failure the old file stands and nothing else is left behind.
Result<Done, std::error_code> replaceFile(const std::string& path, std::string_view contents);

/// Makes a folder and those above it, for the user alone; one that exists stays as it is.
Result<Done, std::error_code> makeFolders(const std::string& folder);

/// The contents; a failure's code is ENOENT when there is no file, EFBIG past `limit` bytes.
Result<std::string, std::error_code> readFile(const std::string& path, std::size_t limit);

/// Words for an operating-system failure.
[[nodiscard]] std::string wordsFor(const std::error_code& failure);

} // namespace brinmoor

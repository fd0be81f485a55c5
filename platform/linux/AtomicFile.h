#pragma once

#include "core/Result.h"

#include <string>
#include <string_view>
#include <system_error>

namespace brinmoor {

/// Replaces a file's contents whole: a temporary file in the same folder is written, flushed and
/// renamed, and the folder is flushed too. Missing folders are made for the user alone, and so is
/// the file. A symbolic link survives: the file that it names is replaced. After a failure the old
/// file is as it was and nothing else is left behind; only where the folder can't be flushed, the
/// last step, the new contents stand and are reported as perhaps not lasting.
Result<Done, std::error_code> replaceFile(const std::string& path, std::string_view contents);

/// Makes a folder and those above it, for the user alone; one that exists stays as it is.
Result<Done, std::error_code> makeFolders(const std::string& folder);

/// The contents; a failure's code is ENOENT when there is no file, EFBIG past `limit` bytes.
Result<std::string, std::error_code> readFile(const std::string& path, std::size_t limit);

/// Words for an operating-system failure.
[[nodiscard]] std::string wordsFor(const std::error_code& failure);

} // namespace brinmoor

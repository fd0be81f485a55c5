#pragma once

#include "core/library/FileSystem.h"

#include <functional>
#include <string>
#include <string_view>

namespace brinmoor {

/// Takes a piece of a file's new content; false when it can't be stored.
using ContentSink = std::function<bool(std::string_view piece)>;
/// Hands the whole new content to the sink; false when the sink refused a piece.
using FileContent = std::function<bool(const ContentSink& sink)>;

/// Puts a file with this content at `path`: the old file or the new one stands there at any moment,
/// whole. Makes missing folders (0700); a symbolic link at `path` stays and its target is replaced.
///
/// Gives 0, or the errno of the step that failed; then the old file stands there and no temporary
/// one is left. EFBIG when the content is larger than `largest`.
[[nodiscard]] int replaceFile(FileSystem& system, const std::string& path,
                              const FileContent& content, std::uint64_t largest);

} // namespace brinmoor

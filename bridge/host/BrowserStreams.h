#pragma once

#include "bridge/frames/FileDescriptor.h"

#include <optional>

namespace brinmoor::bridge {

/// The two ends that the browser gave this process, moved away from the standard streams.
struct BrowserStreams {
    FileDescriptor input;
    FileDescriptor output;
};

/// Takes the browser's streams for frames alone: afterwards standard input and output are
/// /dev/null, so that nothing else that this process prints can reach the browser. The streams are
/// non-blocking. Absent when the process was started without them.
[[nodiscard]] std::optional<BrowserStreams> takeBrowserStreams();

} // namespace brinmoor::bridge

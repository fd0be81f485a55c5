#pragma once

#include "core/library/Library.h"

#include <string>

namespace brinmoor {

/// 2026-03-05T12:00:00 UTC: the sample library's present.
inline constexpr Instant sampleNow{794404800};

/// An invented library: a few days of links with notes, tags and long titles.
[[nodiscard]] Library sampleLibrary();

/// One link of it; `number` makes its identifier.
[[nodiscard]] SavedLink sampleLink(std::string url, std::string title, double hoursAgo,
                                   unsigned char number);

} // namespace brinmoor

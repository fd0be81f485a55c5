#pragma once

#include "core/library/Library.h"

#include <cstddef>
#include <optional>

namespace brinmoor::document {

/// Reads a document that looks as the writer writes it: known keys alone, in their order, no null.
/// Absent for any other, good or bad: that is the complete reader's to judge. What it gives is what
/// the complete reader would give, in a third of the time. readerPadding bytes of room stand behind
/// the document.
[[nodiscard]] std::optional<Library> scanUsual(const char* bytes, std::size_t size);

} // namespace brinmoor::document

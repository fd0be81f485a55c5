#pragma once

#include <string>
#include <string_view>

/// For LibraryReader and its tests.
namespace brinmoor::document {

/// The text with the numbers put in other words that are JSON, but too large for the reader of it:
/// a whole number as the nearest floating-point number, one that is beyond all of those as an
/// empty object, which no known key may hold. All else stays as it is, mistakes included.
[[nodiscard]] std::string withoutLargeNumbers(std::string_view json);

} // namespace brinmoor::document

#pragma once

#include "core/library/Library.h"

#include <cstdint>
#include <random>
#include <string>

namespace brinmoor::tests {

/// A link that differs from others by its address alone.
[[nodiscard]] SavedLink linkTo(std::string url);
[[nodiscard]] SavedLink linkTo(std::string url, std::vector<std::string> tags);

/// A link or library of every kind of content, the same for the same seed.
[[nodiscard]] SavedLink randomLink(std::mt19937_64& random);
[[nodiscard]] Library randomLibrary(std::uint64_t seed, std::size_t links);
[[nodiscard]] std::string randomText(std::mt19937_64& random, std::size_t mostCharacters);
[[nodiscard]] double randomFiniteNumber(std::mt19937_64& random);

} // namespace brinmoor::tests

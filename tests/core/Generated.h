#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor::tests {

/// The seed of a property's first case: BRINMOOR_SEED repeats a run that failed.
inline std::uint64_t firstSeed() {
    const char* given = std::getenv("BRINMOOR_SEED");
    return given == nullptr ? 1 : std::strtoull(given, nullptr, 10);
}

/// Input made from a seed: the same seed gives the same input everywhere.
class Generated {
public:
    explicit Generated(std::uint64_t seed) : engine_(seed) {}

    /// From 0 to `limit` - 1.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
    bool oneIn(std::size_t number) { return below(number) == 0; }

    template <class List>
    const auto& oneOf(const List& list) {
        return list[below(std::size(list))];
    }

    /// Up to `most` of the pieces, one behind the other.
    template <class List>
    std::string textOf(const List& pieces, std::size_t most) {
        std::string text;
        for (std::size_t left = below(most + 1); left > 0; --left)
            text += oneOf(pieces);
        return text;
    }

    std::mt19937_64& engine() { return engine_; }

private:
    std::mt19937_64 engine_;
};

/// Runs `check(generated)` for `count` seeds and names the seed of the first that fails.
template <class Check>
void forSeeds(std::uint64_t count, Check check) {
    for (std::uint64_t seed = firstSeed(); seed < firstSeed() + count; ++seed) {
        SCOPED_TRACE("BRINMOOR_SEED=" + std::to_string(seed));
        Generated generated(seed);
        check(generated);
        if (testing::Test::HasFailure())
            return;
    }
}

} // namespace brinmoor::tests

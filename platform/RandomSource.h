#pragma once

#include <cstdint>
#include <span>

namespace brinmoor {

/// Bytes that nobody can guess, for secrets. Main thread.
class RandomSource {
public:
    virtual ~RandomSource() = default;

    /// Fills all of `bytes`; false, with their content unspecified, when there are none to be had.
    [[nodiscard]] virtual bool fill(std::span<std::uint8_t> bytes) = 0;
};

} // namespace brinmoor

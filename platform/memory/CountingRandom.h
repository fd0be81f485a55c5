#pragma once

#include "platform/RandomSource.h"

namespace brinmoor {

/// Bytes that count up, other ones at each call.
class CountingRandom final : public RandomSource {
public:
    /// What every call gives.
    bool succeeds = true;

    [[nodiscard]] bool fill(std::span<std::uint8_t> bytes) override {
        for (std::uint8_t& byte : bytes)
            byte = next_++;
        return succeeds;
    }

private:
    std::uint8_t next_ = 0;
};

} // namespace brinmoor

#pragma once

#include "platform/RandomSource.h"

namespace brinmoor {

/// The kernel's random source.
class SystemRandom final : public RandomSource {
public:
    [[nodiscard]] bool fill(std::span<std::uint8_t> bytes) override;
};

} // namespace brinmoor

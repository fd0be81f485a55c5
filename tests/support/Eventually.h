#pragma once

#include <chrono>
#include <thread>

namespace brinmoor::testing {

/// Asks again and again until `condition` holds; false when it didn't within `limit`. For what
/// other processes bring about and nobody tells.
template <class Condition>
[[nodiscard]] bool eventually(Condition condition,
                              std::chrono::milliseconds limit = std::chrono::seconds(20)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

} // namespace brinmoor::testing

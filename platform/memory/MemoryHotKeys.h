#pragma once

#include "platform/HotKeys.h"

#include <compare>
#include <map>
#include <set>

namespace brinmoor {

/// Hot keys of a desktop that a test makes up.
class MemoryHotKeys final : public HotKeys {
public:
    struct Combination {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        friend auto operator<=>(const Combination&, const Combination&) = default;
    };

    /// Combinations that another client holds.
    std::set<Combination> refused;
    /// What is registered now, by id.
    std::map<std::uint32_t, Combination> registered;

    [[nodiscard]] bool registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                      std::uint32_t id) override;
    void unregisterHotKey(std::uint32_t id) override;

    /// The user presses a combination; false when nothing of this program is registered for it.
    bool press(Combination combination);
    /// The desktop takes an accepted registration back.
    void withdraw(std::uint32_t id);
};

} // namespace brinmoor

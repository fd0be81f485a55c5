#pragma once

#include <cstdint>
#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace brinmoor {

/// Which of the X server's modifier bits carry which keys: the user's keyboard map decides it.
class KeyboardModifiers {
public:
    /// Asks the server.
    [[nodiscard]] static KeyboardModifiers read(xcb_connection_t* connection);

    /// The bits for a stored shortcut's modifiers; absent when the keyboard lacks one of them.
    [[nodiscard]] std::optional<std::uint16_t> maskFor(std::uint32_t shortcutModifiers) const;

    /// Every combination of the locks (Caps Lock, Num Lock, Scroll Lock), none of them first: a
    /// shortcut counts whichever is on.
    [[nodiscard]] const std::vector<std::uint16_t>& lockCombinations() const { return locks_; }

    /// All locks together.
    [[nodiscard]] std::uint16_t lockMask() const { return lockMask_; }

    /// Whether the keyboard map gives the key a meaning.
    [[nodiscard]] bool hasKey(std::uint32_t xKeyCode) const;

private:
    std::uint16_t super_ = 0;
    std::uint16_t alt_ = 0;
    std::uint16_t lockMask_ = 0;
    std::vector<std::uint16_t> locks_;
    std::vector<bool> keys_;
};

} // namespace brinmoor

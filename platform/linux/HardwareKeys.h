#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Keys by their place on the keyboard, which is what a stored shortcut means: on any layout the
/// key that is K on an American keyboard stays that key.
namespace brinmoor {

struct HardwareKey {
    std::uint32_t virtualKeyCode; ///< as shortcuts are stored
    std::uint32_t position;       ///< the kernel's key code; an X key code is 8 more
    std::string_view name;        ///< the X keysym name on an American keyboard
};

/// The distance from the kernel's key codes to those of the X server.
inline constexpr std::uint32_t xKeyOffset = 8;

/// Absent for a number that no key has.
[[nodiscard]] std::optional<HardwareKey> hardwareKey(std::uint32_t virtualKeyCode);

/// The same asked by the X key code, which Qt calls the native scan code.
[[nodiscard]] std::optional<HardwareKey> hardwareKeyAtXKey(std::uint32_t xKeyCode);

} // namespace brinmoor

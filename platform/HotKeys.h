#pragma once

#include <cstdint>
#include <functional>

namespace brinmoor {

/// System-wide hot keys. Main thread.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    /// Called on the main thread, from the event loop, once for each press of a registered key
    /// (a key held down counts once), with the number it was registered under.
    std::function<void(std::uint32_t id)> pressed;

    /// Called on the main thread when a registration that had been accepted is withdrawn or
    /// turned down later, as a desktop portal may do.
    std::function<void(std::uint32_t id)> lost;

    /// Registers the hardware key `keyCode` (a stored virtual key code) with the modifier bits of
    /// ShortcutModifier under `id`. False, with nothing registered, when another client holds the
    /// combination, when the keyboard has no such key, or when this desktop offers no hot keys.
    [[nodiscard]] virtual bool registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                              std::uint32_t id) = 0;
    /// Does nothing for an id that isn't registered.
    virtual void unregisterHotKey(std::uint32_t id) = 0;
};

} // namespace brinmoor

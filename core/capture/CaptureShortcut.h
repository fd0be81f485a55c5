#pragma once

#include "core/capture/CaptureAction.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// Modifier bits of a stored shortcut.
namespace ShortcutModifier {
inline constexpr std::uint32_t command = 0x100;
inline constexpr std::uint32_t shift = 0x200;
inline constexpr std::uint32_t option = 0x800;
inline constexpr std::uint32_t control = 0x1000;
} // namespace ShortcutModifier

/// A system-wide keyboard shortcut.
struct CaptureShortcut {
    std::uint32_t keyCode = 0; ///< the virtual key code of the hardware key
    std::uint32_t modifiers = 0;
    std::string character; ///< what is shown for the key: upper case, or "Space"

    /// "⌃⌥⇧⌘" as far as they are set, in this order, then `character`; each sign is worded.
    [[nodiscard]] std::string label() const;

    /// The parts of the label, each by itself as a keycap shows it: "Shift", "Super", "K".
    [[nodiscard]] std::vector<std::string> keys() const;

    /// Same key and modifiers: `character` is only for display.
    [[nodiscard]] bool sameKeys(const CaptureShortcut& other) const noexcept;

    friend bool operator==(const CaptureShortcut&, const CaptureShortcut&) = default;
};

using ShortcutMap = std::map<CaptureAction, CaptureShortcut>;

/// One key press while a shortcut is recorded.
struct KeyPress {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;               ///< bits of ShortcutModifier
    std::optional<std::string> plainCharacter; ///< the key's text with modifiers ignored
};

[[nodiscard]] CaptureShortcut defaultShortcut(CaptureAction action);
[[nodiscard]] ShortcutMap defaultShortcuts();
/// `shortcuts` with the memorable preset for `quick` and `note`.
[[nodiscard]] ShortcutMap withMemorablePreset(ShortcutMap shortcuts);

/// The shortcut of a key press: absent without Command, Option or Control, for the reserved keys
/// (Return, Tab, Delete, Escape, Enter, Forward Delete), and for keys without a character.
[[nodiscard]] std::optional<CaptureShortcut> shortcutFrom(const KeyPress& press);

/// Whether two actions share a key and modifiers.
[[nodiscard]] bool hasClash(const ShortcutMap& shortcuts);

/// The stored map, by stored names. An action without an entry has its default, entries under
/// unknown names are ignored; a text that is no map of whole shortcuts gives all defaults.
[[nodiscard]] ShortcutMap decodeShortcuts(std::optional<std::string_view> json);
/// The same where nothing but the one shortcut of an older time is stored, which was for `quick`;
/// a text that is no whole shortcut gives all defaults.
[[nodiscard]] ShortcutMap decodeOlderShortcut(std::string_view json);
[[nodiscard]] std::string encodeShortcuts(const ShortcutMap& shortcuts);

} // namespace brinmoor

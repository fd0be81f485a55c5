#include "core/capture/CaptureShortcut.h"

#include "core/text/Characters.h"
#include "core/text/Wording.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace brinmoor {
namespace {

constexpr std::uint32_t shiftCommand = ShortcutModifier::shift | ShortcutModifier::command;

struct Sign {
    std::uint32_t modifier;
    std::string_view text;
};

/// In the order of a label.
constexpr std::array<Sign, 4> signs{{
    {ShortcutModifier::control, "⌃"},
    {ShortcutModifier::option, "⌥"},
    {ShortcutModifier::shift, "⇧"},
    {ShortcutModifier::command, "⌘"},
}};

/// Return, Tab, Delete, Escape, Enter, Forward Delete.
constexpr std::array<std::uint32_t, 6> reservedKeyCodes{36, 48, 51, 53, 76, 117};

/// Where the codes of function keys begin among the characters of a keyboard.
constexpr char32_t firstFunctionKey = 0xF700;

bool isControl(char32_t character) noexcept {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool isTyped(std::string_view key) noexcept {
    for (std::size_t at = 0; at < key.size();) {
        const char32_t character = text::nextCharacter(key, at);
        if (isControl(character) || character >= firstFunctionKey)
            return false;
    }
    return !key.empty();
}

bool isReserved(std::uint32_t keyCode) noexcept {
    return std::ranges::find(reservedKeyCodes, keyCode) != reservedKeyCodes.end();
}

std::uint32_t knownModifiers(std::uint32_t modifiers) noexcept {
    return modifiers & (shiftCommand | ShortcutModifier::option | ShortcutModifier::control);
}

} // namespace

std::string CaptureShortcut::label() const {
    std::string label;
    for (const Sign& sign : signs) {
        if ((modifiers & sign.modifier) != 0)
            label += text::worded(sign.text);
    }
    return label + character;
}

std::vector<std::string> CaptureShortcut::keys() const {
    std::vector<std::string> keys;
    for (const Sign& sign : signs) {
        if ((modifiers & sign.modifier) == 0)
            continue;
        std::string name = text::worded(sign.text);
        // Some wordings join what follows.
        if (name.ends_with('+'))
            name.pop_back();
        keys.push_back(std::move(name));
    }
    keys.push_back(character);
    return keys;
}

bool CaptureShortcut::sameKeys(const CaptureShortcut& other) const noexcept {
    return keyCode == other.keyCode && modifiers == other.modifiers;
}

CaptureShortcut defaultShortcut(CaptureAction action) {
    switch (action) {
    case CaptureAction::quick:
        return {40, shiftCommand, "K"};
    case CaptureAction::note:
        return {40, ShortcutModifier::option | ShortcutModifier::command, "K"};
    case CaptureAction::selected:
        return {40, ShortcutModifier::control | shiftCommand, "K"};
    case CaptureAction::window:
        return {40, ShortcutModifier::option | shiftCommand, "K"};
    case CaptureAction::search:
        return {31, shiftCommand, "O"};
    case CaptureAction::duplicates:
        return {2, shiftCommand, "D"};
    }
    return {};
}

ShortcutMap defaultShortcuts() {
    ShortcutMap shortcuts;
    for (const CaptureAction action : allCaptureActions)
        shortcuts.emplace(action, defaultShortcut(action));
    return shortcuts;
}

ShortcutMap withMemorablePreset(ShortcutMap shortcuts) {
    shortcuts[CaptureAction::quick] = {40, shiftCommand, "K"};
    shortcuts[CaptureAction::note] = {45, shiftCommand, "N"};
    return shortcuts;
}

std::optional<CaptureShortcut> shortcutFrom(const KeyPress& press) {
    const std::uint32_t modifiers = knownModifiers(press.modifiers);
    // Shift alone makes a capital, not a command.
    if ((modifiers & ~ShortcutModifier::shift) == 0)
        return std::nullopt;
    if (!press.plainCharacter || isReserved(press.keyCode) || !isTyped(*press.plainCharacter))
        return std::nullopt;
    const std::string& key = *press.plainCharacter;
    return CaptureShortcut{press.keyCode, modifiers, key == " " ? "Space" : text::uppercased(key)};
}

bool hasClash(const ShortcutMap& shortcuts) {
    std::set<std::pair<std::uint32_t, std::uint32_t>> keys;
    for (const auto& [action, shortcut] : shortcuts)
        keys.emplace(shortcut.keyCode, shortcut.modifiers);
    return keys.size() < shortcuts.size();
}

} // namespace brinmoor

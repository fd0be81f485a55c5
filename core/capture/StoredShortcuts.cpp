#include "core/capture/CaptureShortcut.h"
#include "core/text/SmallJson.h"

namespace brinmoor {
namespace {

constexpr std::size_t longestStoredMap = std::size_t{1} << 20;

std::optional<CaptureShortcut> storedShortcut(const text::JsonElement& element) {
    text::JsonObject object;
    if (element.get(object) != simdjson::SUCCESS)
        return std::nullopt;
    const auto keyCode = text::wholeFieldOf<std::uint32_t>(object, "keyCode");
    const auto modifiers = text::wholeFieldOf<std::uint32_t>(object, "modifiers");
    auto character = text::textField(object, "character");
    if (!keyCode || !modifiers || !character)
        return std::nullopt;
    return CaptureShortcut{*keyCode, *modifiers, std::move(*character)};
}

/// The known entries; absent when any entry at all is not whole.
std::optional<ShortcutMap> storedShortcuts(std::string_view json) {
    const text::SmallJson document(json);
    text::JsonObject entries;
    if (document.root().get(entries) != simdjson::SUCCESS)
        return std::nullopt;
    ShortcutMap shortcuts;
    for (const auto& entry : entries) {
        auto shortcut = storedShortcut(entry.value);
        if (!shortcut)
            return std::nullopt;
        if (const auto action = captureAction(entry.key))
            shortcuts.insert_or_assign(*action, std::move(*shortcut));
    }
    return shortcuts;
}

std::string encoded(const CaptureShortcut& shortcut) {
    return "{\"character\":" + text::quoted(shortcut.character) +
           ",\"keyCode\":" + std::to_string(shortcut.keyCode) +
           ",\"modifiers\":" + std::to_string(shortcut.modifiers) + "}";
}

} // namespace

ShortcutMap decodeShortcuts(std::optional<std::string_view> json) {
    if (!json || json->size() > longestStoredMap)
        return defaultShortcuts();
    ShortcutMap shortcuts = storedShortcuts(*json).value_or(ShortcutMap{});
    shortcuts.merge(defaultShortcuts());
    return shortcuts;
}

ShortcutMap decodeOlderShortcut(std::string_view json) {
    ShortcutMap shortcuts = defaultShortcuts();
    if (json.size() > longestStoredMap)
        return shortcuts;
    const text::SmallJson document(json);
    text::JsonElement root;
    if (document.root().get(root) != simdjson::SUCCESS)
        return shortcuts;
    if (auto shortcut = storedShortcut(root))
        shortcuts.insert_or_assign(CaptureAction::quick, std::move(*shortcut));
    return shortcuts;
}

std::string encodeShortcuts(const ShortcutMap& shortcuts) {
    std::string json = "{";
    for (const auto& [action, shortcut] : shortcuts) {
        if (json.size() > 1)
            json += ',';
        json += text::quoted(storedName(action)) + ":" + encoded(shortcut);
    }
    return json + "}";
}

} // namespace brinmoor

#include "core/capture/CaptureAction.h"

#include <algorithm>

namespace brinmoor {
namespace {

struct ActionNames {
    std::string_view stored;
    std::string_view message;
};

/// In the order of the cases; the hot key of a row is its place, from 1.
constexpr std::array<ActionNames, allCaptureActions.size()> actionNames{{
    {"quick", "Save link"},
    {"note", "Save with a note"},
    {"selected", "Save selected tabs"},
    {"window", "Save all tabs in window"},
    {"search", "Search open tabs"},
    {"duplicates", "Close duplicate tabs"},
}};

std::size_t place(CaptureAction action) noexcept {
    return static_cast<std::size_t>(action);
}

} // namespace

std::string_view storedName(CaptureAction action) noexcept {
    return actionNames[place(action)].stored;
}

std::string_view messageName(CaptureAction action) noexcept {
    return actionNames[place(action)].message;
}

std::optional<CaptureAction> captureAction(std::string_view storedName) noexcept {
    const auto row = std::ranges::find(actionNames, storedName, &ActionNames::stored);
    if (row == actionNames.end())
        return std::nullopt;
    return static_cast<CaptureAction>(row - actionNames.begin());
}

std::uint32_t hotKeyId(CaptureAction action) noexcept {
    return static_cast<std::uint32_t>(action) + 1;
}

std::optional<CaptureAction> captureActionOfHotKey(std::uint32_t id) noexcept {
    if (id == 0 || id > allCaptureActions.size())
        return std::nullopt;
    return allCaptureActions[id - 1];
}

} // namespace brinmoor

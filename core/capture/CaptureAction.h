#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brinmoor {

/// The six commands that work from anywhere on the desktop.
enum class CaptureAction { quick, note, selected, window, search, duplicates };

inline constexpr std::array allCaptureActions{CaptureAction::quick,    CaptureAction::note,
                                              CaptureAction::selected, CaptureAction::window,
                                              CaptureAction::search,   CaptureAction::duplicates};

/// The case name, as it is stored.
[[nodiscard]] std::string_view storedName(CaptureAction action) noexcept;
[[nodiscard]] std::optional<CaptureAction> captureAction(std::string_view storedName) noexcept;
/// The number under which its hot key is registered, from 1.
[[nodiscard]] std::uint32_t hotKeyId(CaptureAction action) noexcept;
[[nodiscard]] std::optional<CaptureAction> captureActionOfHotKey(std::uint32_t id) noexcept;
/// "Save link", "Save with a note", …: its name in messages and panel titles.
[[nodiscard]] std::string_view messageName(CaptureAction action) noexcept;

} // namespace brinmoor

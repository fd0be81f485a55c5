#pragma once

#include "core/capture/CaptureShortcut.h"

#include <optional>

class QKeyEvent;

namespace brinmoor {

/// What a key press means to a recording: the key by its place on the keyboard, and the character
/// that the user's layout gives it. Absent for a modifier key by itself.
[[nodiscard]] std::optional<KeyPress> recordedKey(const QKeyEvent& event);

/// Whether the press ends a recording without a shortcut, whatever is held with it.
[[nodiscard]] bool isEscape(const QKeyEvent& event);

} // namespace brinmoor

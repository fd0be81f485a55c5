#pragma once

#include <QRect>
#include <QWindow>

/// What the screens ask of the window system beyond what Qt offers. Main thread.
namespace brinmoor::Desktop {

/// Whether a window's transparent parts show what lies behind it.
[[nodiscard]] bool showsThroughWindows();

/// Lets clicks outside `area` (device-independent, of a window that is created) go to what lies
/// behind. Does nothing where the window system decides by itself.
void limitInput(const QWindow& window, const QRect& area);

/// Whether the window still has the keyboard although it was told otherwise: so it is while a
/// program holds the keys for the length of one press. False where there is nobody to ask.
[[nodiscard]] bool keepsKeyboard(const QWindow& window);

} // namespace brinmoor::Desktop

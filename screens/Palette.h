#pragma once

#include "app/SavedSettings.h"

namespace brinmoor {

/// An opaque sRGB colour; each component from 0 to 1.
struct Colour {
    double red = 0;
    double green = 0;
    double blue = 0;
    friend constexpr bool operator==(const Colour&, const Colour&) = default;
};

/// One colour of the palette in both themes.
struct AdaptiveColour {
    Colour cream;
    Colour black;

    [[nodiscard]] constexpr const Colour& in(AppAppearance appearance) const noexcept {
        return appearance == AppAppearance::cream ? cream : black;
    }
};

[[nodiscard]] constexpr AdaptiveColour adaptive(Colour cream, Colour black) noexcept {
    return {cream, black};
}

/// Every colour that the screens draw from. What is lighter or fainter is derived in Theme.qml.
namespace Palette {
inline constexpr auto paper = adaptive({0.98, 0.976, 0.965}, {0.075, 0.079, 0.083});
inline constexpr auto sidebar = adaptive({0.949, 0.949, 0.925}, {0.095, 0.101, 0.108});
inline constexpr auto surface = adaptive({0.994, 0.993, 0.99}, {0.115, 0.122, 0.13});
inline constexpr auto raised = adaptive({1, 1, 1}, {0.145, 0.154, 0.165});
inline constexpr auto ink = adaptive({0.16, 0.18, 0.15}, {0.94, 0.95, 0.95});
inline constexpr auto sage = adaptive({0.32, 0.39, 0.26}, {0.23, 0.82, 0.63});
inline constexpr auto muted = adaptive({0.46, 0.49, 0.42}, {0.62, 0.65, 0.68});
inline constexpr auto line = adaptive({0.88, 0.89, 0.85}, {0.22, 0.24, 0.26});
inline constexpr auto onAccent = adaptive({1, 1, 1}, {0.075, 0.079, 0.083});
/// Failures and what destroys.
inline constexpr auto rust =
    adaptive({158 / 255.0, 64 / 255.0, 43 / 255.0}, {242 / 255.0, 143 / 255.0, 120 / 255.0});
} // namespace Palette

} // namespace brinmoor

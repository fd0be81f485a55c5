#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brinmoor {

/// One browser that can be driven.
struct Browser {
    std::string_view id;   ///< bundle identifier
    std::string_view name; ///< short display name; a saved link records it

    /// The fixed catalogue, in the order in which several browsers are visited.
    [[nodiscard]] static std::span<const Browser> supported() noexcept;
    /// The row with this identifier; nullptr when there is none.
    [[nodiscard]] static const Browser* find(std::string_view id) noexcept;

    /// The Safari family is exactly Safari and Safari Technology Preview; all else is Chromium's.
    [[nodiscard]] bool isSafari() const noexcept;

    friend bool operator==(const Browser&, const Browser&) = default;
};

/// Whether an application is a browser, or acts like one, that can't be scripted. By prefix, so
/// that variants of an application fall under the same row.
[[nodiscard]] bool isKnownUnsupported(std::string_view bundleIdentifier) noexcept;

} // namespace brinmoor

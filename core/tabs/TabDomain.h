#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// The host of an address without any "www.", wherever that stands in it; absent when the text is
/// no address or has no host.
[[nodiscard]] std::optional<std::string> tabDomain(std::string_view url);

/// What tells a tab from every other: its browser, window, own identifier and place.
[[nodiscard]] std::string tabIdentity(std::string_view browserID, std::string_view windowID,
                                      std::string_view tabID, int index);

} // namespace brinmoor

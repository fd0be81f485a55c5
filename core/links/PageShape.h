#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brinmoor::LinkTitle {

/// A title read from the address alone: the author or the post at a social site, elsewhere the
/// host and the last part of the path. Absent when `url` is no address with a host.
[[nodiscard]] std::optional<std::string> titleFromShape(std::string_view url);

} // namespace brinmoor::LinkTitle

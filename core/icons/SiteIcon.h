#pragma once

#include "core/text/WebAddress.h"

#include <optional>
#include <string_view>
#include <vector>

/// Where a site's icon may be. Pure, no network, any thread.
namespace brinmoor::SiteIcon {

/// The site's root: scheme, host and port of `page` with the path "/".
/// Absent when the library would not accept `page`.
[[nodiscard]] std::optional<WebAddress> origin(std::string_view page);

/// An icon address given by a page, made absolute. Absent when there is none, when it has more
/// than 4096 characters (grapheme clusters), or when the library would not accept the result.
[[nodiscard]] std::optional<WebAddress> resolve(std::optional<std::string_view> href,
                                                const WebAddress& base);

/// The icons that a page's HTML declares, ordinary ones before touch icons, without repeats, at
/// most 4.
[[nodiscard]] std::vector<WebAddress> declared(std::string_view html, const WebAddress& base);

} // namespace brinmoor::SiteIcon

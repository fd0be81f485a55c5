#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// The plain case, which is nearly every saved address: it needs neither repair nor the strict
/// parser.
namespace brinmoor::addresses {

/// Where the parts of a plain address lie.
struct PlainAddress {
    std::size_t schemeEnd = 0;
    std::size_t hostBegin = 0;
    std::size_t hostEnd = 0;
    std::size_t pathBegin = 0; ///< behind the port
    std::size_t pathEnd = 0;
    std::size_t queryEnd = 0; ///< pathEnd when there is no query
    bool hasCapitals = false; ///< in scheme or host
};

/// Absent unless `text` is http or https with a named host, no user, and only characters that
/// RFC 3986 allows where they stand. Absent says nothing about whether it is an address.
[[nodiscard]] std::optional<PlainAddress> scanPlain(std::string_view text) noexcept;

} // namespace brinmoor::addresses

#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The five parts of a URI reference and what is done to them one by one. Used where addresses
/// are read, never by what only holds one.
namespace brinmoor::addresses {

/// The longest text that is taken for an address, and the longest canonical string.
inline constexpr std::size_t longestAddress = std::size_t{2} << 20;

/// A reference cut at its delimiters (RFC 3986, appendix B), unchecked. Views of the cut text.
struct Parts {
    std::optional<std::string_view> scheme; ///< only if it has the form of one
    std::optional<std::string_view> authority;
    std::string_view path;
    std::optional<std::string_view> query;
    std::optional<std::string_view> fragment;
};
[[nodiscard]] Parts split(std::string_view text) noexcept;

/// An authority cut at its delimiters, unchecked.
struct Authority {
    std::optional<std::string_view> userInfo;
    std::string_view host;
    std::optional<std::string_view> port;
};
[[nodiscard]] Authority splitAuthority(std::string_view authority) noexcept;

/// The host as RFC 3986 allows it: its A-label if it holds non-ASCII letters, the four characters
/// that only browsers allow percent-encoded, otherwise as it is spelled. Absent if it is none.
[[nodiscard]] std::optional<std::string> repairedHost(std::string_view host);

/// Appends `text` with each byte that may not stand there percent-encoded; `allowed` is one of the
/// character classes.
void appendRepaired(std::string& target, std::string_view text, unsigned char allowed);

/// Whether the text is UTF-8 without any white space or control character.
[[nodiscard]] bool isSolid(std::string_view text) noexcept;

/// Whether a port is a number up to 65535 or empty: what a connection can use.
[[nodiscard]] bool isPort(std::string_view port) noexcept;

/// The canonical string, checked by the strict parser; absent if `text` is no URL with a scheme.
[[nodiscard]] std::optional<std::string> canonicalText(std::string_view text);

} // namespace brinmoor::addresses

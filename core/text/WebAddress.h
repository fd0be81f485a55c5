#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// A parsed URL with a scheme (RFC 3986). Immutable value.
///
/// Browsers report addresses that RFC 3986 refuses, so every byte that may not stand where it
/// stands in path, query or fragment is percent-encoded before the strict parse, a "%" without two
/// hexadecimal digits too; a host with non-ASCII letters becomes its A-label (UTS 46). White space
/// and control characters inside stay a refusal. Nothing else is changed, so string() is a fixed
/// point: parse(a.string()) gives an equal address. Further decisions: the four characters that
/// only browsers allow in a host (" ` { }) are percent-encoded there too; a port is empty or at
/// most 65535, as browsers have it; a backslash is a path character like any other that needs
/// encoding, so one inside the authority is a refusal.
class WebAddress {
public:
    /// Absent for a text that is no URL with a scheme, even after the repair above.
    /// The text is taken as it stands: trimming is the caller's. At most 2 MiB are accepted.
    [[nodiscard]] static std::optional<WebAddress> parse(std::string_view text);

    /// The absolute form of `reference` seen from `base` (RFC 3986, section 5).
    [[nodiscard]] static std::optional<WebAddress> resolve(std::string_view reference,
                                                           const WebAddress& base);

    /// The canonical string.
    [[nodiscard]] const std::string& string() const noexcept { return text_; }
    [[nodiscard]] std::string_view scheme() const noexcept;
    /// As it is spelled, an IPv6 host with its brackets; empty when there is none.
    [[nodiscard]] std::string_view host() const noexcept;
    /// Whether the authority holds an "@": a user, a password or an empty one of either.
    [[nodiscard]] bool hasUserInfo() const noexcept;
    /// As it is spelled, percent-encoded.
    [[nodiscard]] std::string_view path() const noexcept;
    /// From "?" on, without it; absent when there is no "?".
    [[nodiscard]] std::optional<std::string_view> query() const noexcept;

    /// The same scheme, authority and port with the path "/" and no query or fragment.
    [[nodiscard]] WebAddress origin() const;

    friend bool operator==(const WebAddress&, const WebAddress&) = default;

private:
    struct Span {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        friend bool operator==(const Span&, const Span&) = default;
    };
    [[nodiscard]] std::string_view view(Span span) const noexcept {
        return std::string_view(text_).substr(span.begin, span.end - span.begin);
    }

    /// Takes a text that is known to be canonical.
    explicit WebAddress(std::string canonical);

    std::string text_;
    Span scheme_, host_, path_, query_;
    bool hasUserInfo_ = false;
    bool hasQuery_ = false;
};

} // namespace brinmoor

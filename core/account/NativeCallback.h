#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

/// The strict reading of what comes back to the program from outside. Pure; any thread.
namespace brinmoor {

class NativeCallback {
public:
    /// The longest return URL that is looked at.
    static constexpr std::size_t longestUrl = 8192;

    /// Exactly 43 bytes of A–Z, a–z, 0–9, "_" and "-": the URL-safe unpadded Base64 of 32 bytes.
    [[nodiscard]] static bool isNonce(std::string_view text) noexcept;

    /// The address trimmed and in lower case; absent when it can't be one, or is not UTF-8.
    [[nodiscard]] static std::optional<std::string> normalizedEmail(std::string_view address);

    /// The percent-decoded values of the query of a URL "brinmoor://host/path?…" that has this
    /// host, this percent-encoded path and exactly these keys, each once and with a value, and no
    /// user, password, port or fragment. Absent for every other text.
    [[nodiscard]] static std::optional<std::map<std::string, std::string>>
    parameters(std::string_view url, std::string_view host, std::string_view path,
               const std::set<std::string>& keys);

    /// Whether the URL is of the program's own scheme and the host of sign-in links, whatever else
    /// is right or wrong with it.
    [[nodiscard]] static bool isSignIn(std::string_view url);
};

class AccountAccess {
public:
    /// The one-time code of a return URL that carries this state; absent when anything about the
    /// URL, the code or the expected state is not as it must be.
    [[nodiscard]] static std::optional<std::string> callbackCode(std::string_view url,
                                                                 std::string_view expectedState);
};

} // namespace brinmoor

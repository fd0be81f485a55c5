#pragma once

#include "core/library/Instant.h"
#include "core/library/Uuid.h"

#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// One sign-in in progress: what was asked of the service, and whether its link has come back.
/// Plain value.
struct PendingEmailSignIn {
    static constexpr double lifetime = 900.0; ///< seconds

    Uuid id;
    std::string verifier; ///< the proof key, in nonce form; leaves the program at the exchange only
    std::string state;    ///< must come back in the return URL, in nonce form
    std::string email;    ///< in normal form
    std::string name;     ///< what the user typed, or empty
    Instant createdAt;
    Instant expiresAt;
    bool consumed = false; ///< a return URL was accepted

    PendingEmailSignIn() = default;
    /// A request made now, unchecked. It begins up to a microsecond before `now` where that is
    /// needed for a lifetime that is exact in its stored numbers too.
    PendingEmailSignIn(Uuid newID, std::string newVerifier, std::string newState,
                       std::string normalEmail, std::string typedName, Instant now);

    /// Whether it has begun, has not expired, has the exact lifetime, and its values have their
    /// forms. A consumed request is as valid as another.
    [[nodiscard]] bool isValid(Instant at) const;

    /// The code of a return URL that belongs to this request, once: the first right one consumes
    /// it. Absent, and nothing changed, for everything else.
    [[nodiscard]] std::optional<std::string> consume(std::string_view url, Instant now);

    friend bool operator==(const PendingEmailSignIn&, const PendingEmailSignIn&) = default;
};

/// The stored form: a JSON object with the fields' names.
[[nodiscard]] std::string encoded(const PendingEmailSignIn& request);
/// Absent unless all eight values are there and of their types; what they hold is not checked.
[[nodiscard]] std::optional<PendingEmailSignIn> decodePendingSignIn(std::string_view json);

} // namespace brinmoor

#pragma once

#include "core/Result.h"
#include "core/account/AccountFailure.h"
#include "core/account/PendingEmailSignIn.h"

#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

class Clock;
class SecureStore;

/// The login that outlives a run and that all running copies of the program share: the session
/// token and the sign-in in progress. Every operation is one transaction that holds the lock from
/// its beginning to its end and gives up with `accountBusy` when another copy has it. Main thread.
///
/// A stored request that is broken, expired or otherwise invalid is removed by whoever reads it and
/// counts as absent. `keychain` is every failure of the store, `system` one of the folder.
class AccountKeychain {
public:
    static constexpr std::string_view service = "app.brinmoor.mac.account";
    static constexpr std::string_view tokenItem = "access-token";
    static constexpr std::string_view requestItem = "pending-sign-in";

    template <class T>
    using Answer = Result<T, AccountFailure>;

    /// `folder` holds the lock file.
    AccountKeychain(SecureStore& store, Clock& clock, std::string folder);

    [[nodiscard]] Answer<std::optional<std::string>> token();
    /// The stored request, consumed or not.
    [[nodiscard]] Answer<std::optional<PendingEmailSignIn>> pending();
    /// `callback` for a request that is invalid or consumed.
    [[nodiscard]] Answer<Done> save(const PendingEmailSignIn& request);

    struct Claim {
        PendingEmailSignIn request; ///< as it is stored now: consumed
        std::string code;
    };
    /// Takes the code from a return URL and records that the request was used; absent, and nothing
    /// changed, when the URL does not fit the stored request or the request is for another address
    /// than `currentEmail`, where that is given.
    [[nodiscard]] Answer<std::optional<Claim>>
    claimSignIn(std::string_view url, const std::optional<std::string>& currentEmail);

    enum class Completion { stored, overtaken };
    /// Stores the token and ends the request; `overtaken`, and nothing changed, when the request is
    /// no longer the stored one.
    [[nodiscard]] Answer<Completion> completeSignIn(const PendingEmailSignIn& request,
                                                    std::string_view token);

    /// Removes the request with this identifier and no other; nothing is removed for an absent one.
    [[nodiscard]] Answer<Done> cancelSignIn(const std::optional<Uuid>& id);
    /// Removes the token if it is still this one.
    [[nodiscard]] Answer<Done> clearToken(std::string_view ifMatches);
    /// Removes the token if it is still the given one, and the request in any case. A token that is
    /// no text is removed when none was given.
    [[nodiscard]] Answer<Done> signOut(const std::optional<std::string>& token);

private:
    [[nodiscard]] Answer<std::optional<std::string>> data(std::string_view item);
    [[nodiscard]] Answer<Done> write(std::string_view item, std::string_view bytes);
    [[nodiscard]] Answer<Done> remove(std::string_view item);
    [[nodiscard]] Answer<std::optional<std::string>> storedToken();
    [[nodiscard]] Answer<std::optional<PendingEmailSignIn>> pendingSignIn();
    [[nodiscard]] Answer<Done> removeTokenOfSignOut(const std::optional<std::string>& token);

    template <class Body>
    [[nodiscard]] auto locked(Body body) -> decltype(body());

    SecureStore& store_;
    Clock& clock_;
    std::string folder_;
};

} // namespace brinmoor

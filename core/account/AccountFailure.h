#pragma once

#include <string>

namespace brinmoor {

/// Why something about the account failed, with its words.
struct AccountFailure {
    enum class Cause {
        service,         ///< the service refused; `text` is what it says
        signIn,          ///< the service no longer knows the login
        invalidResponse, ///< the service's answer makes no sense, or a request can't be made
        callback,        ///< a sign-in link or a request that doesn't fit
        keychain,        ///< the store of secrets failed
        accountBusy,     ///< another copy of the program is at the store
        connection,      ///< the service could not be reached
        system,          ///< the operating system refused; `text` are its words
    };
    Cause cause = Cause::invalidResponse;
    std::string text = {};

    /// A sentence or more for the user.
    [[nodiscard]] std::string errorDescription() const;

    friend bool operator==(const AccountFailure&, const AccountFailure&) = default;
};

} // namespace brinmoor

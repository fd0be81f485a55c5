#pragma once

#include "core/Result.h"
#include "core/account/AccountFailure.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What is sent to the service and what it answers.
namespace brinmoor {

struct AccountUser {
    std::string id;
    std::string name;
    std::string email;
    friend bool operator==(const AccountUser&, const AccountUser&) = default;
};

/// The service's record of an account. Two records with one user.id are the same user's.
struct BrinmoorAccount {
    AccountUser user;
    friend bool operator==(const BrinmoorAccount&, const BrinmoorAccount&) = default;
};

/// What a one-time code was exchanged for.
struct SignInExchange {
    std::string accessToken;
    BrinmoorAccount account;
    friend bool operator==(const SignInExchange&, const SignInExchange&) = default;
};

/// A JSON object of texts, in this order.
[[nodiscard]] std::string
encodedTexts(const std::vector<std::pair<std::string_view, std::string_view>>& members);

/// The failure that a status stands for; absent for a status from 200 to 299. `body` is the
/// answer's.
[[nodiscard]] std::optional<AccountFailure> failureOfStatus(int status, std::string_view body);

/// Each reads the body of a successful answer, and gives `invalidResponse` for any other text.
[[nodiscard]] Result<Done, AccountFailure> decodeMailAnswer(std::string_view body);
[[nodiscard]] Result<SignInExchange, AccountFailure> decodeExchange(std::string_view body);
[[nodiscard]] Result<BrinmoorAccount, AccountFailure> decodeAccount(std::string_view body);

} // namespace brinmoor

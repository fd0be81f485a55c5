#pragma once

#include "account/ServiceCall.h"
#include "core/account/AccountFailure.h"
#include "core/account/AccountRecords.h"
#include "core/account/PendingEmailSignIn.h"

#include <QCoroTask>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// The service's side of signing in: each operation starts one request. Calls that are still open
/// when this object goes are given up. Main thread.
class AccountService {
public:
    using Call = std::shared_ptr<ServiceCall>;

    static constexpr std::chrono::seconds requestLimit{15};
    static constexpr std::chrono::seconds resourceLimit{20};

    /// `baseURL` is https and may end in "/".
    AccountService(Http& http, std::string baseURL);
    AccountService(const AccountService&) = delete;
    AccountService& operator=(const AccountService&) = delete;
    ~AccountService();

    /// Asks for the mail.
    [[nodiscard]] Call requestMail(const PendingEmailSignIn& request);
    /// Exchanges a code for a token.
    [[nodiscard]] Call exchange(const PendingEmailSignIn& request, std::string_view code);
    /// Reads the account of a token.
    [[nodiscard]] Call account(std::string_view token, std::chrono::milliseconds timeout);
    /// Reads what all users' actions add up to.
    [[nodiscard]] Call usageReport(std::string_view token);
    /// Ends the session of a token, whether that succeeds or not.
    void revoke(std::string_view token);

private:
    [[nodiscard]] Call start(HttpRequest request);
    [[nodiscard]] HttpRequest post(std::string_view path, std::string body) const;
    [[nodiscard]] HttpRequest get(std::string_view path, std::string_view token) const;
    static QCoro::Task<> keepUntilItEnds(Call call);

    Http& http_;
    std::string baseURL_;
    std::vector<std::weak_ptr<ServiceCall>> calls_;
};

/// What an answer means: the decoded body of a successful one, or the failure.
template <class Decode>
[[nodiscard]] auto meaningOf(const ServiceCall::Answer& answer, Decode decode)
    -> decltype(decode(std::string_view())) {
    if (!answer)
        return failure(AccountFailure{AccountFailure::Cause::connection});
    if (auto failed = failureOfStatus(answer->status, answer->body))
        return failure(std::move(*failed));
    return decode(std::string_view(answer->body));
}

} // namespace brinmoor

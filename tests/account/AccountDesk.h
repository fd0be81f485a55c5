#pragma once

#include "account/AccountController.h"
#include "platform/memory/CountingRandom.h"
#include "platform/memory/ManualClock.h"
#include "platform/memory/MemoryHttp.h"
#include "platform/memory/MemorySecureStore.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace brinmoor {

using Stage = AccountController::SignInStage;
using Force = AccountController::Force;
using RefreshExisting = AccountController::RefreshExisting;

inline const std::string serviceURL = "https://service.test/";
inline const std::string rightCode(43, 'c');

inline std::string tokenOf(char letter) {
    return std::string(43, letter);
}

inline std::string accountJson(const std::string& id, const std::string& email) {
    return R"("account":{"user":{"id":")" + id + R"(","name":"Ada","email":")" + email + "\"}}";
}

inline std::string accountBody(const std::string& id = "u1",
                               const std::string& email = "ada@example.org") {
    return "{" + accountJson(id, email) + "}";
}

inline std::string exchangeBody(const std::string& token,
                                const std::string& email = "ada@example.org") {
    return R"({"accessToken":")" + token + "\"," + accountJson("u1", email) + "}";
}

inline std::string linkOf(const PendingEmailSignIn& request, const std::string& code = rightCode) {
    return "brinmoor://auth/callback?code=" + code + "&state=" + request.state;
}

/// What all copies of the program have in common.
class AccountDesk : public ::testing::Test {
protected:
    AccountDesk() { clock.present = Instant{800000000}; }
    ~AccountDesk() override { testing::settle(); }

    [[nodiscard]] AccountParts parts() {
        return {
            clock, http, random, secrets, folder.path("Brinmoor"), serviceURL, "Owner@example.org"};
    }
    /// One copy of the program, as it starts now.
    [[nodiscard]] std::unique_ptr<AccountController> copy() {
        return std::make_unique<AccountController>(parts());
    }
    [[nodiscard]] AccountKeychain keychain() { return {secrets, clock, folder.path("Brinmoor")}; }

    std::string& tokenItem() { return item(AccountKeychain::tokenItem); }
    std::string& requestItem() { return item(AccountKeychain::requestItem); }
    [[nodiscard]] bool hasToken() const { return has(AccountKeychain::tokenItem); }
    [[nodiscard]] bool hasRequest() const { return has(AccountKeychain::requestItem); }
    [[nodiscard]] PendingEmailSignIn storedRequest() {
        return decodePendingSignIn(requestItem()).value_or(PendingEmailSignIn());
    }

    /// The newest call to a path that is still open.
    [[nodiscard]] MemoryHttp::Call& open(const std::string& path) {
        for (auto call = http.calls.rbegin(); call != http.calls.rend(); ++call)
            if ((*call)->isOpen() && (*call)->request.address == serviceURL + path)
                return **call;
        ADD_FAILURE() << "nobody asked for " << path;
        return *http.calls.front();
    }
    void answer(const std::string& path, int status, const std::string& body) {
        open(path).answer(status, body);
        testing::settle();
    }
    [[nodiscard]] int asked(const std::string& path) const {
        int count = 0;
        for (const auto& call : http.calls)
            count += call->request.address == serviceURL + path ? 1 : 0;
        return count;
    }

    /// Asks for a mail and lets the service accept.
    void requestMail(AccountController& one, const std::string& email = "ada@example.org") {
        one.setSignInEmail(QString::fromStdString(email));
        one.sendSignInEmail();
        answer("api/auth/native/request", 200, R"({"ok":true})");
    }
    /// Signs a copy in with this token.
    void signIn(AccountController& one, const std::string& token) {
        requestMail(one);
        one.handleIncomingURL(linkOf(storedRequest()));
        testing::settle();
        answer("api/auth/exchange", 200, exchangeBody(token));
    }

    testing::ScratchFolder folder;
    ManualClock clock;
    MemoryHttp http;
    CountingRandom random;
    MemorySecureStore secrets;

private:
    static std::pair<std::string, std::string> key(std::string_view name) {
        return {std::string(AccountKeychain::service), std::string(name)};
    }
    std::string& item(std::string_view name) { return secrets.items[key(name)]; }
    [[nodiscard]] bool has(std::string_view name) const {
        return secrets.items.contains(key(name));
    }
};

} // namespace brinmoor

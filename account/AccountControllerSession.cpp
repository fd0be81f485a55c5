// The session: fetching the account, and keeping in step with other copies of the program.

#include "account/AccountController.h"

#include "core/text/Wording.h"
#include "platform/Clock.h"

#include <QPointer>

#include <utility>

namespace brinmoor {

void AccountController::apply(const BrinmoorAccount& account, std::optional<std::string> message) {
    account_ = account;
    setMessage(std::move(message));
}

void AccountController::dropFlight() {
    // Those who wait are told by its end, and find that it is no longer theirs.
    refreshFlight_.reset();
    isRefreshing_ = false;
}

void AccountController::holdLogin(const std::string& token, const BrinmoorAccount& account) {
    sessionGeneration_ = clock_.newUuid();
    dropFlight();
    accessToken_ = token;
    hasLogin_ = true;
    apply(account);
    loginChanged();
}

void AccountController::clearLocalLogin() {
    sessionGeneration_ = clock_.newUuid();
    accessToken_.reset();
    hasLogin_ = false;
    account_.reset();
    dropFlight();
    loginChanged();
}

void AccountController::signOut() {
    const auto token = accessToken_;
    cancelSignIn();
    clearLocalLogin();
    setMessage(std::nullopt);
    if (const auto signedOut = keychain_.signOut(token); !signedOut)
        setMessage(signedOut.error());
    if (token)
        service_.revoke(*token);
}

void AccountController::startFlight(Force force, std::chrono::milliseconds timeout) {
    refreshFlight_ = {clock_.newUuid(), force, *accessToken_,
                      service_.account(*accessToken_, timeout)};
    isRefreshing_ = true;
    Q_EMIT changed();
}

QCoro::Task<> AccountController::refresh(Force force, std::chrono::milliseconds timeout) {
    const QPointer<AccountController> self(this);
    if (!accessToken_) {
        account_.reset();
        loginChanged();
        co_return;
    }
    const Uuid generation = sessionGeneration_;
    if (force == Force::yes && refreshFlight_ && refreshFlight_->force == Force::no) {
        // What an earlier fetch brings may be older than what the caller wants to see.
        const QCoro::Task<> earlier = refresh(Force::no, usualTimeout);
        co_await earlier;
        if (!self || sessionGeneration_ != generation)
            co_return;
    }
    if (!refreshFlight_)
        startFlight(force, timeout);
    const Uuid flight = refreshFlight_->id;
    const std::string token = refreshFlight_->token;
    const QFuture<ServiceCall::Answer> ending = refreshFlight_->call->answer();
    const ServiceCall::Answer answer = co_await ending;
    if (!self)
        co_return;
    if (sessionGeneration_ == generation)
        settle(meaningOf(answer, decodeAccount), flight, token);
    if (refreshFlight_ && refreshFlight_->id == flight) {
        dropFlight();
        Q_EMIT changed();
    }
}

void AccountController::settle(const Fetched& fetched, const Uuid& flight,
                               const std::string& token) {
    if (fetched)
        return apply(*fetched, quietFlight_ == flight ? message_ : std::nullopt);
    if (fetched.error().cause == AccountFailure::Cause::signIn) {
        (void)keychain_.clearToken(token);
        clearLocalLogin();
    }
    setMessage(fetched.error());
}

QCoro::Task<> AccountController::synchronizeLogin(RefreshExisting refreshExisting) {
    const QPointer<AccountController> self(this);
    const auto stored = keychain_.token();
    if (!stored) {
        setMessage(stored.error());
        co_return;
    }
    const Uuid generation = sessionGeneration_;
    if (!*stored && accessToken_) {
        clearLocalLogin();
        setMessage(text::worded("You signed out in another copy of Brinmoor."));
    } else if (*stored && *stored != accessToken_) {
        const QCoro::Task<> adopting = adoptStored(**stored);
        co_await adopting;
        co_return;
    } else if (refreshExisting == RefreshExisting::yes && hasLogin_) {
        const QCoro::Task<> fetching = refresh(Force::yes);
        co_await fetching;
    }
    if (!self || hasLogin_)
        co_return;
    const auto pending = keychain_.pending();
    if (!pending && sessionGeneration_ == generation)
        setMessage(pending.error());
    else if (pending)
        showPending(*pending);
}

/// Takes over the login that another copy stored, unless it is another user's or anything has
/// changed meanwhile.
QCoro::Task<> AccountController::adoptStored(std::string stored) {
    const QPointer<AccountController> self(this);
    const Uuid generation = sessionGeneration_;
    const auto held = accessToken_;
    const AccountService::Call call = service_.account(stored, usualTimeout);
    const QFuture<ServiceCall::Answer> ending = call->answer();
    const ServiceCall::Answer answer = co_await ending;
    if (!self || sessionGeneration_ != generation)
        co_return;
    const Fetched fetched = meaningOf(answer, decodeAccount);
    if (!fetched) {
        setMessage(fetched.error());
        co_return;
    }
    const auto again = keychain_.token();
    if (!again)
        setMessage(again.error());
    if (!again || *again != stored || accessToken_ != held)
        co_return;
    if (held && (!account_ || account_->user.id != fetched->user.id))
        setMessage(text::worded("Another copy of Brinmoor signed in to a different account. Sign "
                                "out here before switching."));
    else
        followLogin(stored, *fetched);
}

/// Holds the login that another copy stored; the sign-in that this one waited for is over.
void AccountController::followLogin(const std::string& token, const BrinmoorAccount& account) {
    holdLogin(token, account);
    showPending(std::nullopt);
}

void AccountController::restorePendingSignIn(const PendingEmailSignIn& request) {
    pendingSignIn_ = request;
    authAttempt_ = request.id;
    signInEmail_ = request.email;
    signInName_ = request.name;
    setStage(request.consumed ? SignInStage::verifying : SignInStage::waiting);
}

/// Shows what the store says about a sign-in in progress.
void AccountController::showPending(const std::optional<PendingEmailSignIn>& stored) {
    if (stored) {
        // The mail of this very request is being asked for: it is not waited for yet.
        const bool isBeingSent =
            signInStage_ == SignInStage::sending && isAttempt(*stored) && !stored->consumed;
        if (!isBeingSent)
            restorePendingSignIn(*stored);
        return;
    }
    if (signInStage_ == SignInStage::waiting || signInStage_ == SignInStage::verifying) {
        pendingSignIn_.reset();
        setStage(SignInStage::idle);
    }
}

QCoro::Task<Result<UsageReport, AccountFailure>> AccountController::loadUsageReport() {
    if (!accessToken_)
        co_return failure(AccountFailure{AccountFailure::Cause::signIn});
    const AccountService::Call call = service_.usageReport(*accessToken_);
    const QFuture<ServiceCall::Answer> ending = call->answer();
    const ServiceCall::Answer answer = co_await ending;
    using Loaded = Result<UsageReport, AccountFailure>;
    co_return meaningOf(answer, [](std::string_view body) -> Loaded {
        auto report = decodeUsageReport(body);
        if (!report)
            return failure(AccountFailure{AccountFailure::Cause::invalidResponse});
        return std::move(*report);
    });
}

} // namespace brinmoor

// Signing in: asking for the mail, taking its link, exchanging the code.

#include "account/AccountController.h"

#include "core/account/NativeCallback.h"
#include "core/text/Characters.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/RandomSource.h"

#include <QByteArray>
#include <QPointer>

#include <array>
#include <utility>

namespace brinmoor {
namespace {

using Cause = AccountFailure::Cause;
using text::worded;

constexpr std::size_t longestName = 80;

std::string cleanName(std::string_view typed) {
    std::string kept;
    for (const char byte : typed)
        if (static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F)
            kept += byte;
    return std::string(text::firstGraphemes(text::trimmed(kept), longestName));
}

} // namespace

Result<std::string, AccountFailure> AccountController::randomSecret() {
    std::array<std::uint8_t, 32> bytes{};
    if (!random_.fill(bytes))
        return failure(AccountFailure{Cause::invalidResponse});
    const auto raw = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                             static_cast<qsizetype>(bytes.size()));
    return raw.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals)
        .toStdString();
}

/// A mail that was sent before stays good when its request is used again.
Result<bool, AccountFailure> AccountController::canResend(const std::string& email) {
    if (!pendingSignIn_ || pendingSignIn_->email != email || pendingSignIn_->consumed ||
        !pendingSignIn_->isValid(clock_.now()))
        return false;
    const auto stored = keychain_.pending();
    if (!stored)
        return failure(stored.error());
    return *stored && (*stored)->id == pendingSignIn_->id;
}

Result<PendingEmailSignIn, AccountFailure>
AccountController::chosenRequest(const std::string& email) {
    const auto resends = canResend(email);
    if (!resends)
        return failure(resends.error());
    if (*resends)
        return *pendingSignIn_;
    auto verifier = randomSecret();
    auto state = randomSecret();
    if (!verifier || !state)
        return failure(AccountFailure{Cause::invalidResponse});
    PendingEmailSignIn request(clock_.newUuid(), std::move(*verifier), std::move(*state), email,
                               cleanName(signInName_), clock_.now());
    if (const auto saved = keychain_.save(request); !saved)
        return failure(saved.error());
    return request;
}

void AccountController::dropMailCall() {
    if (const auto call = std::exchange(signInRequestTask_, nullptr))
        call->cancel();
}

void AccountController::sendSignInEmail() {
    if (hasLogin_ || signInStage_ == SignInStage::sending || signInStage_ == SignInStage::verifying)
        return;
    const auto email = NativeCallback::normalizedEmail(signInEmail_);
    if (!email)
        return setMessage(worded("Enter a valid email address."));
    if (resendAvailableAt_ && *resendAvailableAt_ > clock_.now())
        return;
    const auto request = chosenRequest(*email);
    if (!request)
        return setMessage(request.error());
    pendingSignIn_ = *request;
    authAttempt_ = request->id;
    signInEmail_ = *email;
    message_.reset();
    setStage(SignInStage::sending);
    dropMailCall();
    mailTask(*request);
}

QCoro::Task<> AccountController::mailTask(PendingEmailSignIn request) {
    const QPointer<AccountController> self(this);
    const AccountService::Call call = service_.requestMail(request);
    signInRequestTask_ = call;
    const QFuture<ServiceCall::Answer> ending = call->answer();
    const ServiceCall::Answer answer = co_await ending;
    // Given up means that a newer step has taken over, which says what there is to say.
    if (!self || signInRequestTask_ != call)
        co_return;
    signInRequestTask_.reset();
    const auto accepted = meaningOf(answer, decodeMailAnswer);
    if (!accepted)
        mailFailed(request, accepted.error());
    else
        mailAccepted(std::move(request));
}

void AccountController::mailFailed(const PendingEmailSignIn& request,
                                   const AccountFailure& failed) {
    if (!isAttempt(request))
        return;
    if (signInStage_ == SignInStage::sending) {
        resendAvailableAt_.reset();
        setStage(SignInStage::waiting);
    }
    setMessage(failed);
}

QCoro::Task<> AccountController::mailAccepted(PendingEmailSignIn request) {
    const QPointer<AccountController> self(this);
    if (!isAttempt(request) || !pendingSignIn_ || pendingSignIn_->id != request.id ||
        signInStage_ != SignInStage::sending)
        co_return;
    const auto stored = keychain_.pending();
    if (!stored) {
        mailFailed(request, stored.error());
        co_return;
    }
    if (*stored && (*stored)->id == request.id && !(*stored)->consumed) {
        resendAvailableAt_ = Instant{clock_.now().seconds + resendPause};
        message_ = worded("Open the sign-in email on this Mac. Brinmoor will finish signing you in "
                          "automatically.");
        setStage(SignInStage::waiting);
        co_return;
    }
    const QCoro::Task<> synchronizing = synchronizeLogin(RefreshExisting::yes);
    co_await synchronizing;
    if (self && isAttempt(request) && signInStage_ == SignInStage::sending) {
        // The request ended elsewhere and no other one took its place.
        pendingSignIn_.reset();
        setStage(SignInStage::idle);
    }
}

void AccountController::cancelSignIn() {
    const auto id = pendingSignIn_ ? std::optional(pendingSignIn_->id) : std::nullopt;
    authAttempt_ = clock_.newUuid();
    dropMailCall();
    resendAvailableAt_.reset();
    message_.reset();
    pendingSignIn_.reset();
    setStage(SignInStage::idle);
    if (const auto cancelled = keychain_.cancelSignIn(id); !cancelled)
        setMessage(cancelled.error());
}

void AccountController::handleIncomingURL(const std::string& url) {
    if (NativeCallback::isSignIn(url))
        takeLink(url);
}

/// Any copy may be handed the link, whichever asked for it: what the others did comes first.
QCoro::Task<> AccountController::takeLink(std::string url) {
    const QPointer<AccountController> self(this);
    const QCoro::Task<> synchronizing = synchronizeLogin(RefreshExisting::no);
    co_await synchronizing;
    if (self)
        finishSignIn(std::move(url));
}

QCoro::Task<> AccountController::finishSignIn(std::string url) {
    const QPointer<AccountController> self(this);
    if (hasLogin_ && !account_) {
        const QCoro::Task<> fetching = refresh(Force::no);
        co_await fetching;
        if (!self)
            co_return;
        if (hasLogin_ && !account_) {
            showAccount(worded("Check your current account first, then open this sign-in link "
                               "again."));
            co_return;
        }
    }
    const auto currentEmail = account_ ? std::optional(account_->user.email) : std::nullopt;
    const auto claimed = keychain_.claimSignIn(url, currentEmail);
    if (!claimed)
        showAccount(claimed.error().errorDescription());
    else if (!*claimed)
        showAccount(worded("This sign-in link expired, was already used, or belongs to another "
                           "account. Request a fresh link here if you still need to sign in."));
    else
        exchange(**claimed);
}

QCoro::Task<> AccountController::exchange(AccountKeychain::Claim claim) {
    const QPointer<AccountController> self(this);
    const PendingEmailSignIn request = claim.request;
    signInEmail_ = request.email;
    signInName_ = request.name;
    pendingSignIn_ = request;
    authAttempt_ = request.id;
    dropMailCall();
    signInStage_ = SignInStage::verifying;
    showAccount(worded("Signing you in…"));
    const AccountService::Call call = service_.exchange(request, claim.code);
    const QFuture<ServiceCall::Answer> ending = call->answer();
    const ServiceCall::Answer answer = co_await ending;
    if (!self)
        co_return;
    if (const auto done = exchanged(request, answer); !done) {
        (void)keychain_.cancelSignIn(request.id);
        if (isAttempt(request))
            setMessage(done.error());
    }
    if (isAttempt(request))
        setStage(SignInStage::idle);
}

Result<Done, AccountFailure> AccountController::exchanged(const PendingEmailSignIn& request,
                                                          const ServiceCall::Answer& answer) {
    const auto exchange = meaningOf(answer, decodeExchange);
    if (!exchange)
        return failure(exchange.error());
    if (!NativeCallback::isNonce(exchange->accessToken) ||
        text::lowercased(exchange->account.user.email) != request.email)
        return failure(AccountFailure{Cause::invalidResponse});
    if (isAttempt(request))
        return adoptExchange(request, *exchange);
    service_.revoke(exchange->accessToken);
    return Done{};
}

/// A token that can't be kept must not stay valid at the service.
Result<Done, AccountFailure> AccountController::adoptExchange(const PendingEmailSignIn& request,
                                                              const SignInExchange& exchange) {
    const auto completed = keychain_.completeSignIn(request, exchange.accessToken);
    if (completed && *completed == AccountKeychain::Completion::stored) {
        holdLogin(exchange.accessToken, exchange.account);
        showAccount();
        return Done{};
    }
    service_.revoke(exchange.accessToken);
    if (!completed)
        return failure(completed.error());
    setMessage(worded("Sign-in was cancelled in another copy of Brinmoor. Send a fresh link to "
                      "continue."));
    return Done{};
}

void AccountController::showAccount(std::string text) {
    setMessage(std::move(text));
    showAccount();
    // Who sees the account has it fetched, which must not take the words away unread.
    if (refreshFlight_)
        quietFlight_ = refreshFlight_->id;
}

void AccountController::showAccount() {
    if (bringAccountForward)
        bringAccountForward();
    else if (presentationWindow)
        presentationWindow();
}

} // namespace brinmoor

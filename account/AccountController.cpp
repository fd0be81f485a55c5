#include "account/AccountController.h"

#include "core/text/Characters.h"
#include "platform/Clock.h"

#include <utility>

namespace brinmoor {

AccountController::AccountController(const AccountParts& parts)
    : clock_(parts.clock), random_(parts.random),
      keychain_(parts.secrets, parts.clock, parts.folder), service_(parts.http, parts.serviceURL),
      ownerAddress_(text::lowercased(parts.ownerAddress)), sessionGeneration_(clock_.newUuid()),
      authAttempt_(clock_.newUuid()) {
    if (const auto token = keychain_.token())
        accessToken_ = *token;
    else
        setMessage(token.error());
    hasLogin_ = accessToken_.has_value();
    const auto pending = keychain_.pending();
    if (!pending)
        setMessage(pending.error());
    else if (*pending)
        restorePendingSignIn(**pending);
}

AccountController::~AccountController() = default;

bool AccountController::isUsageOwner() const {
    return hasLogin_ && account_ && text::lowercased(account_->user.email) == ownerAddress_;
}

QString AccountController::userName() const {
    return account_ ? QString::fromStdString(account_->user.name) : QString();
}

QString AccountController::userEmail() const {
    return account_ ? QString::fromStdString(account_->user.email) : QString();
}

QString AccountController::messageText() const {
    return QString::fromStdString(message_.value_or(std::string()));
}

void AccountController::setSignInEmail(const QString& typed) {
    signInEmail_ = typed.toStdString();
    Q_EMIT changed();
}

void AccountController::setSignInName(const QString& typed) {
    signInName_ = typed.toStdString();
    Q_EMIT changed();
}

void AccountController::setMessage(std::optional<std::string> text) {
    message_ = std::move(text);
    Q_EMIT changed();
}

void AccountController::setStage(SignInStage stage) {
    signInStage_ = stage;
    Q_EMIT changed();
}

void AccountController::loginChanged() {
    Q_EMIT changed();
    if (onChange)
        onChange();
}

} // namespace brinmoor

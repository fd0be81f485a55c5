#include "screens/AccountScreen.h"

#include "app/AppModel.h"
#include "screens/Wording.h"

namespace brinmoor {
namespace {

using Stage = AccountController::SignInStage;

} // namespace

AccountScreen::AccountScreen(AppModel& model, QObject* parent)
    : QObject(parent), model_(model), account_(model.account()) {
    connect(&account_, &AccountController::changed, this, &AccountScreen::changed);
}

bool AccountScreen::hasLogin() const {
    return account_.hasLogin();
}

QString AccountScreen::message() const {
    return account_.messageText();
}

QString AccountScreen::signInEmail() const {
    return account_.signInEmailText();
}

void AccountScreen::setSignInEmail(const QString& typed) {
    account_.setSignInEmail(typed);
}

QString AccountScreen::signInName() const {
    return account_.signInNameText();
}

void AccountScreen::setSignInName(const QString& typed) {
    account_.setSignInName(typed);
}

QString AccountScreen::sendText() const {
    return waitsForMail() ? words("Resend sign-in email") : words("Email me a sign-in link");
}

bool AccountScreen::canSend() const {
    return !isInProgress();
}

bool AccountScreen::canCancel() const {
    return account_.signInStage() != Stage::idle;
}

bool AccountScreen::isInProgress() const {
    return account_.signInStage() == Stage::sending || account_.signInStage() == Stage::verifying;
}

bool AccountScreen::waitsForMail() const {
    return account_.signInStage() == Stage::waiting;
}

QString AccountScreen::userName() const {
    return account_.userName();
}

QString AccountScreen::userEmail() const {
    return account_.userEmail();
}

bool AccountScreen::canSignOut() const {
    // The first answer isn't waited for: with a slow network that takes a while.
    return !account_.isBusy() || !account_.account();
}

void AccountScreen::appear() {
    account_.synchronizeLogin(AccountController::RefreshExisting::yes);
}

void AccountScreen::send() {
    account_.sendSignInEmail();
}

void AccountScreen::cancel() {
    account_.cancelSignIn();
}

void AccountScreen::signOut() {
    account_.signOut();
}

void AccountScreen::goBack() {
    model_.setSection(AppSection::library);
}

} // namespace brinmoor

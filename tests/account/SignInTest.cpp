#include "account/AccountController.h"

#include "account/AccountLock.h"
#include "core/account/NativeCallback.h"
#include "tests/account/AccountDesk.h"

#include <QCryptographicHash>

namespace brinmoor {
namespace {

using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::Optional;
using testing::settle;
using ::testing::StartsWith;

constexpr auto couldNotConnect =
    "Brinmoor couldn’t connect. Check your internet connection and try "
    "again. Your saved library is still available.";
constexpr auto couldNotVerify =
    "Brinmoor couldn’t verify your account. Please try again in a moment.";
constexpr auto openTheMail = "Open the sign-in email on this Mac. Brinmoor will finish signing you "
                             "in automatically.";
constexpr auto expiredLink =
    "This sign-in link expired, was already used, or belongs to another account. Request a fresh "
    "link here if you still need to sign in.";
constexpr auto request = "api/auth/native/request";
constexpr auto exchange = "api/auth/exchange";
constexpr auto logout = "api/auth/logout";

class SignInTest : public AccountDesk {
protected:
    SignInTest() {
        one->bringAccountForward = [this] { ++shown; };
        one->onChange = [this] { ++changes; };
    }
    void type(const char* email, const char* name = "") {
        one->setSignInEmail(QString::fromUtf8(email));
        one->setSignInName(QString::fromUtf8(name));
    }
    void send(const char* email = "ada@example.org") {
        type(email);
        one->sendSignInEmail();
    }
    void openLink(const std::string& url) {
        one->handleIncomingURL(url);
        settle();
    }
    /// To where the exchange is asked for.
    PendingEmailSignIn claimLink() {
        requestMail(*one);
        const auto sent = storedRequest();
        openLink(linkOf(sent));
        return sent;
    }

    int shown = 0;
    int changes = 0;
    std::unique_ptr<AccountController> one = copy();
};

TEST_F(SignInTest, aFreshCopyIsSignedOutAndIdle) {
    EXPECT_FALSE(one->hasLogin());
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_EQ(one->message(), std::nullopt);
    EXPECT_TRUE(http.calls.empty());
}

TEST_F(SignInTest, theMailIsAskedForWithAChallengeAndNeverWithItsVerifier) {
    type(" Ada@Example.org ", " Ada\tLove\x7Flace ");
    one->sendSignInEmail();
    EXPECT_EQ(one->signInStage(), Stage::sending);
    EXPECT_EQ(one->signInEmail(), "ada@example.org");
    const auto stored = storedRequest();
    EXPECT_TRUE(NativeCallback::isNonce(stored.verifier));
    EXPECT_TRUE(NativeCallback::isNonce(stored.state));
    EXPECT_NE(stored.verifier, stored.state);
    EXPECT_EQ(stored.name, "AdaLovelace");
    const HttpRequest& sent = open(request).request;
    const QByteArray hash = QCryptographicHash::hash(QByteArray::fromStdString(stored.verifier),
                                                     QCryptographicHash::Sha256);
    const auto challenge =
        hash.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals).toStdString();
    EXPECT_EQ(sent.body, R"({"email":"ada@example.org","name":"AdaLovelace","client":"mac",)"
                         R"("challenge":")" +
                             challenge + R"(","state":")" + stored.state + "\"}");
    EXPECT_EQ(sent.method, "POST");
    EXPECT_THAT(sent.headers,
                ::testing::ElementsAre(HttpHeader{"Accept", "application/json"},
                                       HttpHeader{"Content-Type", "application/json"}));
    EXPECT_EQ(sent.silenceLimit, std::chrono::seconds(15));
    EXPECT_EQ(sent.totalLimit, std::chrono::seconds(20));
}

TEST_F(SignInTest, aNameIsCutAfterEightyCharacters) {
    std::string name;
    for (int i = 0; i < 81; ++i)
        name += "e\u0301";
    type("ada@example.org", name.c_str());
    one->sendSignInEmail();
    EXPECT_EQ(storedRequest().name.size(), 80U * 3);
}

TEST_F(SignInTest, anAcceptedMailIsWaitedFor) {
    requestMail(*one);
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_THAT(one->message(), Optional(Eq(openTheMail)));
    EXPECT_THAT(one->resendAvailableAt(), Optional(Instant{clock.present.seconds + 30}));
}

TEST_F(SignInTest, whatIsNoAddressIsNotSent) {
    send("ada");
    EXPECT_THAT(one->message(), Optional(Eq("Enter a valid email address.")));
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_TRUE(http.calls.empty());
    EXPECT_FALSE(hasRequest());
}

TEST_F(SignInTest, whileAMailIsAskedForOrALinkCheckedNoOtherIsSent) {
    send();
    one->sendSignInEmail();
    EXPECT_EQ(asked(request), 1);
    answer(request, 200, R"({"ok":true})");
    openLink(linkOf(storedRequest()));
    EXPECT_EQ(one->signInStage(), Stage::verifying);
    clock.present.seconds += 31;
    one->sendSignInEmail();
    EXPECT_EQ(asked(request), 1);
}

TEST_F(SignInTest, withinThirtySecondsASecondMailIsRefusedWithoutAWord) {
    requestMail(*one);
    clock.present.seconds += 29.9;
    one->sendSignInEmail();
    EXPECT_EQ(asked(request), 1);
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_THAT(one->message(), Optional(Eq(openTheMail)));
}

TEST_F(SignInTest, aLaterResendKeepsTheFirstMailsLinkGood) {
    requestMail(*one);
    const auto first = storedRequest();
    const std::string body = http.calls.front()->request.body;
    clock.present.seconds += 30;
    requestMail(*one);
    EXPECT_EQ(asked(request), 2);
    EXPECT_EQ(storedRequest(), first);
    EXPECT_EQ(http.calls.back()->request.body, body);
    openLink(linkOf(first));
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_TRUE(one->hasLogin());
}

TEST_F(SignInTest, aResendToAnotherAddressMakesTheFirstLinkUseless) {
    requestMail(*one);
    const auto first = storedRequest();
    clock.present.seconds += 30;
    requestMail(*one, "bob@example.org");
    EXPECT_NE(storedRequest().id, first.id);
    EXPECT_NE(storedRequest().state, first.state);
    openLink(linkOf(first));
    EXPECT_THAT(one->message(), Optional(Eq(expiredLink)));
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(asked(exchange), 0);
    EXPECT_EQ(one->signInStage(), Stage::waiting);
}

TEST_F(SignInTest, afterItsLifeARequestIsMadeAnew) {
    requestMail(*one);
    const auto first = storedRequest();
    clock.present.seconds += 900;
    requestMail(*one);
    EXPECT_NE(storedRequest().id, first.id);
}

TEST_F(SignInTest, aFailedMailLeavesTheSendButtonWorkingAtOnce) {
    send();
    open(request).fail(HttpFailure::timedOut);
    settle();
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_EQ(one->resendAvailableAt(), std::nullopt);
    EXPECT_THAT(one->message(), Optional(Eq(couldNotConnect)));
    one->sendSignInEmail();
    EXPECT_EQ(asked(request), 2);
    EXPECT_EQ(one->signInStage(), Stage::sending);
    EXPECT_EQ(one->message(), std::nullopt);
}

TEST_F(SignInTest, theServicesRefusalsAreShownInItsWordsOrInOurs) {
    struct Row {
        int status;
        std::string body;
        std::string words;
    };
    const std::string unavailable = "Brinmoor is temporarily unavailable. Try again shortly.";
    const auto error = [](const std::string& words) { return R"({"error":")" + words + "\"}"; };
    for (const Row& row :
         {Row{429, error("Wait."), "Wait."}, Row{500, error(std::string(401, 'x')), unavailable},
          Row{503, "", unavailable}, Row{302, "moved", unavailable}, Row{200, "{}", couldNotVerify},
          Row{200, R"({"ok":false})", couldNotVerify}, Row{200, "<html>", couldNotVerify},
          Row{401, "", "Please sign in again. Your saved library is still available."}}) {
        send();
        answer(request, row.status, row.body);
        EXPECT_THAT(one->message(), Optional(Eq(row.words))) << row.status << row.body;
        EXPECT_EQ(one->signInStage(), Stage::waiting);
    }
}

TEST_F(SignInTest, aRequestThatCannotBeMadeLeavesTheStage) {
    secrets.writeFailure = SecureStoreFailure::locked;
    send();
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t access your login")));
    secrets.writeFailure.reset();
    random.succeeds = false;
    send();
    EXPECT_THAT(one->message(), Optional(Eq(couldNotVerify)));
    EXPECT_TRUE(http.calls.empty());
}

TEST_F(SignInTest, theRightLinkSignsIn) {
    const auto sent = claimLink();
    EXPECT_EQ(one->signInStage(), Stage::verifying);
    EXPECT_THAT(one->message(), Optional(Eq("Signing you in…")));
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(storedRequest().consumed);
    EXPECT_EQ(open(exchange).request.body, R"({"code":")" + rightCode + R"(","verifier":")" +
                                               sent.verifier + R"(","state":")" + sent.state +
                                               "\"}");
    answer(exchange, 200, exchangeBody(tokenOf('t'), "ADA@example.org"));
    EXPECT_TRUE(one->hasLogin());
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_EQ(one->message(), std::nullopt);
    EXPECT_EQ(one->account()->user.id, "u1");
    EXPECT_EQ(one->userName(), QStringLiteral("Ada"));
    EXPECT_EQ(tokenItem(), tokenOf('t'));
    EXPECT_FALSE(hasRequest());
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(changes, 1);
}

TEST_F(SignInTest, withoutAShellsCallbackTheWindowComesForward) {
    one->bringAccountForward = nullptr;
    int presented = 0;
    one->presentationWindow = [&] { ++presented; };
    claimLink();
    EXPECT_EQ(presented, 1);
    one->presentationWindow = nullptr;
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_TRUE(one->hasLogin());
}

TEST_F(SignInTest, aUrlThatIsNoneOfASignInIsIgnored) {
    requestMail(*one);
    for (const char* url : {"", "brinmoor://open/callback", "https://auth/callback", "brinmoor:"})
        openLink(url);
    EXPECT_THAT(one->message(), Optional(Eq(openTheMail)));
    EXPECT_EQ(shown, 0);
}

TEST_F(SignInTest, anExchangeThatFailsEndsTheRequest) {
    struct Row {
        int status;
        std::string body;
        std::string words;
    };
    for (const Row& row :
         {Row{200, exchangeBody("short"), couldNotVerify},
          Row{200, exchangeBody(std::string(42, 't') + "+"), couldNotVerify},
          Row{200, exchangeBody(tokenOf('t'), "eve@example.org"), couldNotVerify},
          Row{200, "{}", couldNotVerify}, Row{410, R"({"error":"Too late."})", "Too late."},
          Row{302, "", "Brinmoor is temporarily unavailable. Try again shortly."},
          Row{401, "", "Please sign in again. Your saved library is still available."}}) {
        claimLink();
        answer(exchange, row.status, row.body);
        EXPECT_THAT(one->message(), Optional(Eq(row.words))) << row.body;
        EXPECT_EQ(one->signInStage(), Stage::idle);
        EXPECT_FALSE(one->hasLogin());
        EXPECT_FALSE(hasToken());
        EXPECT_FALSE(hasRequest());
        clock.present.seconds += 31;
    }
    EXPECT_EQ(asked(logout), 0);
}

TEST_F(SignInTest, anExchangeThatReachesNobodyEndsTheRequest) {
    claimLink();
    open(exchange).fail(HttpFailure::unreachable);
    settle();
    EXPECT_THAT(one->message(), Optional(Eq(couldNotConnect)));
    EXPECT_FALSE(hasRequest());
    EXPECT_EQ(one->signInStage(), Stage::idle);
}

TEST_F(SignInTest, aTokenThatCannotBeStoredIsEndedAtTheService) {
    claimLink();
    secrets.writeFailure = SecureStoreFailure::failed;
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_FALSE(one->hasLogin());
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t access your login")));
    EXPECT_THAT(open(logout).request.headers,
                ::testing::ElementsAre(HttpHeader{"Authorization", "Bearer " + tokenOf('t')}));
    EXPECT_EQ(one->signInStage(), Stage::idle);
}

TEST_F(SignInTest, cancellingWhileTheCodeIsExchangedKeepsNothing) {
    claimLink();
    one->cancelSignIn();
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_FALSE(hasRequest());
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_FALSE(one->hasLogin());
    EXPECT_FALSE(hasToken());
    EXPECT_EQ(one->message(), std::nullopt);
    EXPECT_EQ(asked(logout), 1);
}

TEST_F(SignInTest, cancellingWhileTheMailIsAskedForIsFinal) {
    send();
    auto& call = open(request);
    one->cancelSignIn();
    EXPECT_FALSE(call.isOpen());
    settle();
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_EQ(one->message(), std::nullopt);
    EXPECT_EQ(one->resendAvailableAt(), std::nullopt);
    EXPECT_FALSE(hasRequest());
    send();
    EXPECT_EQ(asked(request), 2);
}

TEST_F(SignInTest, aCancelThatTheStoreRefusesIsSaid) {
    requestMail(*one);
    const auto busy = AccountLock::take(folder.path("Brinmoor"));
    one->cancelSignIn();
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_THAT(one->message(), Optional(StartsWith("Another copy of Brinmoor is updating")));
}

TEST_F(SignInTest, aLinkThatArrivesBeforeTheServicesAnswerWins) {
    send();
    openLink(linkOf(storedRequest()));
    EXPECT_EQ(one->signInStage(), Stage::verifying);
    settle();
    EXPECT_THAT(one->message(), Optional(Eq("Signing you in…")));
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_TRUE(one->hasLogin());
}

TEST_F(SignInTest, comingForwardWhileTheMailIsAskedForChangesNothing) {
    send();
    one->synchronizeLogin(RefreshExisting::yes);
    settle();
    EXPECT_EQ(one->signInStage(), Stage::sending);
    answer(request, 200, R"({"ok":true})");
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_THAT(one->message(), Optional(Eq(openTheMail)));
}

TEST_F(SignInTest, theSecondUseOfALinkGetsTheWordsForAnOldOne) {
    const auto sent = claimLink();
    openLink(linkOf(sent));
    EXPECT_THAT(one->message(), Optional(Eq(expiredLink)));
    EXPECT_EQ(asked(exchange), 1);
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_TRUE(one->hasLogin());
}

TEST_F(SignInTest, aRequestIsRestoredAtTheNextStart) {
    requestMail(*one);
    const auto later = copy();
    EXPECT_EQ(later->signInStage(), Stage::waiting);
    EXPECT_EQ(later->signInEmail(), "ada@example.org");
    openLink(linkOf(storedRequest()));
    const auto interrupted = copy();
    EXPECT_EQ(interrupted->signInStage(), Stage::verifying);
    clock.present.seconds += 900;
    interrupted->synchronizeLogin(RefreshExisting::yes);
    EXPECT_EQ(interrupted->signInStage(), Stage::idle);
}

TEST_F(SignInTest, aStoreThatCannotBeReadAtStartIsSaidAndNoMore) {
    secrets.readFailure = SecureStoreFailure::unavailable;
    const auto unlucky = copy();
    EXPECT_FALSE(unlucky->hasLogin());
    EXPECT_THAT(unlucky->message(),
                Optional(Eq("Brinmoor couldn’t access your login in macOS Keychain. Unlock your "
                            "keychain and try again.")));
    secrets.readFailure.reset();
    requestMail(*unlucky);
    EXPECT_EQ(unlucky->signInStage(), Stage::waiting);
}

TEST_F(SignInTest, aSignedInCopyTakesNoLinkOfAnotherUser) {
    signIn(*one, tokenOf('t'));
    PendingEmailSignIn other({}, tokenOf('v'), tokenOf('s'), "eve@example.org", "", clock.present);
    requestItem() = encoded(other);
    openLink(linkOf(other));
    EXPECT_THAT(one->message(), Optional(Eq(expiredLink)));
    EXPECT_FALSE(storedRequest().consumed);
    EXPECT_TRUE(one->hasLogin());
}

TEST_F(SignInTest, aSignedInCopyMustKnowItsAccountBeforeItTakesALink) {
    tokenItem() = tokenOf('t');
    PendingEmailSignIn mine({}, tokenOf('v'), tokenOf('s'), "ada@example.org", "", clock.present);
    requestItem() = encoded(mine);
    const auto second = copy();
    ASSERT_TRUE(second->hasLogin());
    second->handleIncomingURL(linkOf(mine));
    settle();
    open("api/account").fail(HttpFailure::unreachable);
    settle();
    EXPECT_THAT(second->message(), Optional(Eq("Check your current account first, then open this "
                                               "sign-in link again.")));
    second->handleIncomingURL(linkOf(mine));
    settle();
    answer("api/account", 200, accountBody());
    EXPECT_EQ(second->signInStage(), Stage::verifying);
    answer(exchange, 200, exchangeBody(tokenOf('n')));
    EXPECT_EQ(tokenItem(), tokenOf('n'));
    EXPECT_TRUE(second->hasLogin());
}

TEST_F(SignInTest, whenTheControllerGoesEveryRequestGoesWithIt) {
    send();
    one.reset();
    settle();
    EXPECT_EQ(http.open(), 0U);
    one = copy();
    openLink(linkOf(storedRequest()));
    EXPECT_EQ(http.open(), 1U);
    one.reset();
    settle();
    EXPECT_EQ(http.open(), 0U);
}

} // namespace
} // namespace brinmoor

#include "account/AccountController.h"

#include "account/AccountLock.h"
#include "tests/account/AccountDesk.h"

namespace brinmoor {
namespace {

using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::Optional;
using testing::settle;

constexpr auto account = "api/account";
constexpr auto request = "api/auth/native/request";
constexpr auto exchange = "api/auth/exchange";
constexpr auto logout = "api/auth/logout";
constexpr auto busy =
    "Another copy of Brinmoor is updating your account. Please try again in a moment.";

class SynchronizeTest : public AccountDesk {
protected:
    void synchronize(AccountController& which) {
        which.synchronizeLogin(RefreshExisting::yes);
        settle();
    }
    /// Both copies are signed in as Ada.
    void bothSignedIn() {
        signIn(*one, tokenOf('t'));
        synchronize(*other);
        answer(account, 200, accountBody());
        ASSERT_TRUE(other->hasLogin());
    }

    std::unique_ptr<AccountController> one = copy();
    std::unique_ptr<AccountController> other = copy();
};

TEST_F(SynchronizeTest, aLoginOfAnotherCopyIsAdoptedInSilence) {
    signIn(*one, tokenOf('t'));
    int changes = 0;
    other->onChange = [&] { ++changes; };
    synchronize(*other);
    EXPECT_FALSE(other->hasLogin());
    answer(account, 200, accountBody());
    EXPECT_TRUE(other->hasLogin());
    EXPECT_EQ(other->account(), one->account());
    EXPECT_EQ(other->message(), std::nullopt);
    EXPECT_EQ(changes, 1);
}

TEST_F(SynchronizeTest, aSignOutOfAnotherCopyIsFollowedAndSaid) {
    bothSignedIn();
    one->signOut();
    synchronize(*other);
    EXPECT_FALSE(other->hasLogin());
    EXPECT_EQ(other->account(), std::nullopt);
    EXPECT_THAT(other->message(), Optional(Eq("You signed out in another copy of Brinmoor.")));
    EXPECT_EQ(asked(logout), 1) << "the other copy has ended the session already";
}

TEST_F(SynchronizeTest, aNewTokenOfTheSameUserIsAdoptedInSilence) {
    bothSignedIn();
    tokenItem() = tokenOf('n');
    synchronize(*other);
    answer(account, 200, accountBody());
    EXPECT_TRUE(other->hasLogin());
    EXPECT_EQ(other->message(), std::nullopt);
    other->refresh(Force::yes);
    EXPECT_EQ(open(account).request.headers.back().value, "Bearer " + tokenOf('n'));
    answer(account, 200, accountBody());
}

TEST_F(SynchronizeTest, aLoginOfAnotherUserIsNotAdopted) {
    bothSignedIn();
    tokenItem() = tokenOf('n');
    synchronize(*other);
    answer(account, 200, accountBody("u2", "eve@example.org"));
    EXPECT_THAT(other->message(), Optional(Eq("Another copy of Brinmoor signed in to a different "
                                              "account. Sign out here before switching.")));
    EXPECT_EQ(other->account()->user.id, "u1");
    other->refresh(Force::yes);
    EXPECT_EQ(open(account).request.headers.back().value, "Bearer " + tokenOf('t'));
    answer(account, 200, accountBody());
    other->signOut();
    EXPECT_EQ(tokenItem(), tokenOf('n')) << "the other user's login stays";
}

TEST_F(SynchronizeTest, aLoginWhoseUserIsNotKnownYetIsNotReplaced) {
    tokenItem() = tokenOf('t');
    const auto third = copy();
    tokenItem() = tokenOf('n');
    synchronize(*third);
    answer(account, 200, accountBody());
    EXPECT_THAT(third->message(), Optional(HasSubstr("a different account")));
}

TEST_F(SynchronizeTest, anUnchangedLoginIsRefreshedOnlyWhenThatIsWanted) {
    signIn(*one, tokenOf('t'));
    one->synchronizeLogin(RefreshExisting::no);
    EXPECT_EQ(asked(account), 0);
    synchronize(*one);
    EXPECT_EQ(asked(account), 1);
    answer(account, 200, accountBody());
}

TEST_F(SynchronizeTest, anAdoptionThatIsOvertakenLeavesNoTrace) {
    tokenItem() = tokenOf('t');
    synchronize(*one);
    tokenItem() = tokenOf('n'); // a third copy was faster
    answer(account, 200, accountBody());
    EXPECT_FALSE(one->hasLogin());
    EXPECT_EQ(one->message(), std::nullopt);

    synchronize(*one);
    secrets.items.clear();
    answer(account, 200, accountBody());
    EXPECT_FALSE(one->hasLogin());
}

TEST_F(SynchronizeTest, twoAdoptionsAtOnceEndInOneLogin) {
    tokenItem() = tokenOf('t');
    int changes = 0;
    one->onChange = [&] { ++changes; };
    one->synchronizeLogin(RefreshExisting::yes);
    one->synchronizeLogin(RefreshExisting::yes);
    answer(account, 200, accountBody());
    answer(account, 200, accountBody());
    EXPECT_TRUE(one->hasLogin());
    EXPECT_EQ(changes, 1);
}

TEST_F(SynchronizeTest, anAdoptionThatFailsIsSaidAndSignsNobodyOut) {
    bothSignedIn();
    tokenItem() = tokenOf('n');
    synchronize(*other);
    open(account).fail(HttpFailure::unreachable);
    settle();
    EXPECT_THAT(other->message(), Optional(HasSubstr("couldn’t connect")));
    EXPECT_TRUE(other->hasLogin());
    EXPECT_EQ(other->account()->user.id, "u1");
}

TEST_F(SynchronizeTest, aSignOutDuringAnAdoptionIsFinal) {
    bothSignedIn();
    tokenItem() = tokenOf('n');
    synchronize(*other);
    other->signOut();
    answer(account, 200, accountBody());
    EXPECT_FALSE(other->hasLogin());
    EXPECT_EQ(other->account(), std::nullopt);
    EXPECT_EQ(tokenItem(), tokenOf('n'));
}

TEST_F(SynchronizeTest, whileAnotherCopyIsAtTheStoreThatIsSaidAndNothingChanges) {
    bothSignedIn();
    {
        const auto lock = AccountLock::take(folder.path("Brinmoor"));
        synchronize(*other);
    }
    EXPECT_THAT(other->message(), Optional(Eq(busy)));
    EXPECT_TRUE(other->hasLogin());
    synchronize(*other);
    answer(account, 200, accountBody());
    EXPECT_EQ(other->message(), std::nullopt);
}

TEST_F(SynchronizeTest, aMailThatAnotherCopyAskedForIsWaitedForHereToo) {
    requestMail(*one);
    synchronize(*other);
    EXPECT_EQ(other->signInStage(), Stage::waiting);
    EXPECT_EQ(other->signInEmail(), "ada@example.org");
}

TEST_F(SynchronizeTest, aNewerRequestOfAnotherCopyIsShown) {
    requestMail(*one);
    requestMail(*other, "bob@example.org");
    synchronize(*one);
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_EQ(one->signInEmail(), "bob@example.org");
}

TEST_F(SynchronizeTest, aRequestThatEndedElsewhereIsNotWaitedFor) {
    requestMail(*one);
    synchronize(*other);
    other->cancelSignIn();
    synchronize(*one);
    EXPECT_EQ(one->signInStage(), Stage::idle);
}

TEST_F(SynchronizeTest, aLinkWorksInACopyThatDidNotAskForIt) {
    requestMail(*one);
    other->handleIncomingURL(linkOf(storedRequest()));
    settle();
    EXPECT_EQ(other->signInStage(), Stage::verifying);
    synchronize(*one);
    EXPECT_EQ(one->signInStage(), Stage::verifying);
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_TRUE(other->hasLogin());
    synchronize(*one);
    answer(account, 200, accountBody());
    EXPECT_TRUE(one->hasLogin());
    EXPECT_EQ(one->signInStage(), Stage::idle);
}

TEST_F(SynchronizeTest, oneLinkInTwoCopiesSignsInOneAndIsOldInTheOther) {
    requestMail(*one);
    const std::string url = linkOf(storedRequest());
    one->handleIncomingURL(url);
    other->handleIncomingURL(url);
    settle();
    EXPECT_EQ(asked(exchange), 1);
    EXPECT_THAT(other->message(), Optional(HasSubstr("This sign-in link expired")));
}

TEST_F(SynchronizeTest, aRequestThatWasReplacedWhileItsMailWasAskedForGivesWay) {
    one->setSignInEmail(QStringLiteral("ada@example.org"));
    one->sendSignInEmail();
    PendingEmailSignIn newer({}, tokenOf('v'), tokenOf('s'), "bob@example.org", "", clock.present);
    requestItem() = encoded(newer);
    answer(request, 200, R"({"ok":true})");
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_EQ(one->signInEmail(), "bob@example.org");
    EXPECT_EQ(one->resendAvailableAt(), std::nullopt);
}

TEST_F(SynchronizeTest, aRequestThatWasUsedWhileItsMailWasAskedForIsVerifyingHereToo) {
    one->setSignInEmail(QStringLiteral("ada@example.org"));
    one->sendSignInEmail();
    other->handleIncomingURL(linkOf(storedRequest()));
    settle();
    answer(request, 200, R"({"ok":true})");
    EXPECT_EQ(one->signInStage(), Stage::verifying);
}

TEST_F(SynchronizeTest, aRequestThatEndedWhileItsMailWasAskedForLeavesTheCopyIdle) {
    one->setSignInEmail(QStringLiteral("ada@example.org"));
    one->sendSignInEmail();
    secrets.items.clear();
    answer(request, 200, R"({"ok":true})");
    EXPECT_EQ(one->signInStage(), Stage::idle);
}

TEST_F(SynchronizeTest, aRequestThatIsCancelledElsewhereDuringTheExchangeSignsNobodyIn) {
    requestMail(*one);
    synchronize(*other);
    one->handleIncomingURL(linkOf(storedRequest()));
    settle();
    other->cancelSignIn();
    answer(exchange, 200, exchangeBody(tokenOf('t')));
    EXPECT_FALSE(one->hasLogin());
    EXPECT_THAT(one->message(), Optional(Eq("Sign-in was cancelled in another copy of Brinmoor. "
                                            "Send a fresh link to continue.")));
    EXPECT_EQ(one->signInStage(), Stage::idle);
    EXPECT_EQ(open(logout).request.headers.back().value, "Bearer " + tokenOf('t'));
    EXPECT_FALSE(hasToken());
}

TEST_F(SynchronizeTest, anExchangeThatIsOvertakenByANewRequestLeavesThatAlone) {
    requestMail(*one);
    one->handleIncomingURL(linkOf(storedRequest()));
    settle();
    PendingEmailSignIn newer({}, tokenOf('v'), tokenOf('s'), "bob@example.org", "", clock.present);
    requestItem() = encoded(newer);
    answer(exchange, 500, "");
    EXPECT_EQ(storedRequest(), newer);
}

TEST_F(SynchronizeTest, whenTheControllerGoesDuringAnAdoptionNothingIsLeft) {
    tokenItem() = tokenOf('t');
    synchronize(*one);
    one->handleIncomingURL("brinmoor://auth/callback");
    one.reset();
    settle();
    EXPECT_EQ(http.open(), 0U);
}

} // namespace
} // namespace brinmoor

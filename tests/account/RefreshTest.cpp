#include "account/AccountController.h"

#include "tests/account/AccountDesk.h"

namespace brinmoor {
namespace {

using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::Optional;
using testing::settle;

constexpr auto account = "api/account";
constexpr auto logout = "api/auth/logout";
constexpr auto report = "api/usage/report";

class RefreshTest : public AccountDesk {
protected:
    RefreshTest() {
        tokenItem() = tokenOf('t');
        one = copy();
        one->onChange = [this] { ++changes; };
    }

    /// In a copy that knows its account and whose account screen fetches it once more.
    void openAnOldLink() {
        one->refresh(Force::no);
        answer(account, 200, accountBody());
        one->bringAccountForward = [this] { one->synchronizeLogin(RefreshExisting::yes); };
        one->handleIncomingURL("brinmoor://auth/callback?code=" + rightCode + "&state=old");
        settle();
    }

    int changes = 0;
    std::unique_ptr<AccountController> one;
};

TEST_F(RefreshTest, theAccountIsFetchedWithTheToken) {
    one->refresh(Force::no, std::chrono::seconds(7));
    EXPECT_TRUE(one->isBusy());
    const HttpRequest& sent = open(account).request;
    EXPECT_EQ(sent.method, "GET");
    EXPECT_THAT(sent.headers,
                ::testing::ElementsAre(HttpHeader{"Accept", "application/json"},
                                       HttpHeader{"Authorization", "Bearer " + tokenOf('t')}));
    EXPECT_EQ(sent.silenceLimit, std::chrono::seconds(7));
    answer(account, 200, accountBody());
    EXPECT_EQ(one->account()->user.email, "ada@example.org");
    EXPECT_FALSE(one->isBusy());
}

TEST_F(RefreshTest, callersAtOneTimeShareOneRequest) {
    one->refresh(Force::no);
    one->refresh(Force::no);
    one->refresh(Force::no);
    EXPECT_EQ(asked(account), 1);
    answer(account, 200, accountBody());
    EXPECT_FALSE(one->isRefreshing());
    one->refresh(Force::no);
    EXPECT_EQ(asked(account), 2);
    answer(account, 200, accountBody());
}

TEST_F(RefreshTest, aForcedFetchWaitsForAnEarlierOneAndThenAsksAgain) {
    one->refresh(Force::no);
    one->refresh(Force::yes);
    one->refresh(Force::yes);
    EXPECT_EQ(asked(account), 1);
    answer(account, 200, accountBody("u1", "old@example.org"));
    EXPECT_EQ(asked(account), 2) << "those who were forced share one, too";
    EXPECT_TRUE(one->isRefreshing());
    answer(account, 200, accountBody("u1", "new@example.org"));
    EXPECT_EQ(one->account()->user.email, "new@example.org");
    EXPECT_FALSE(one->isRefreshing());
    EXPECT_EQ(asked(account), 2);
}

TEST_F(RefreshTest, aForcedFetchIsSharedByForcedAndUnforcedCallers) {
    one->refresh(Force::yes);
    one->refresh(Force::no);
    one->refresh(Force::yes);
    EXPECT_EQ(asked(account), 1);
    answer(account, 200, accountBody());
    EXPECT_EQ(asked(account), 1);
}

TEST_F(RefreshTest, aForcedFetchIsNotMadeWhenTheEarlierOneEndedTheSession) {
    one->refresh(Force::no);
    one->refresh(Force::yes);
    answer(account, 401, "");
    EXPECT_EQ(asked(account), 1);
    EXPECT_FALSE(one->hasLogin());
}

TEST_F(RefreshTest, withoutATokenThereIsNothingToFetch) {
    one->signOut();
    changes = 0;
    one->refresh(Force::yes);
    EXPECT_EQ(asked(account), 0);
    EXPECT_EQ(one->account(), std::nullopt);
    EXPECT_EQ(changes, 1);
}

TEST_F(RefreshTest, onlyStatus401EndsALogin) {
    struct Row {
        int status;
        std::string body;
        std::string words;
    };
    for (const Row& row :
         {Row{403, R"({"error":"No."})", "No."},
          Row{500, "", "Brinmoor is temporarily unavailable. Try again shortly."},
          Row{307, "", "Brinmoor is temporarily unavailable. Try again shortly."},
          Row{200, "{", "Brinmoor couldn’t verify your account. Please try again in a moment."}}) {
        one->refresh(Force::no);
        answer(account, row.status, row.body);
        EXPECT_THAT(one->message(), Optional(Eq(row.words)));
        EXPECT_TRUE(one->hasLogin());
    }
    one->refresh(Force::no);
    open(account).fail(HttpFailure::timedOut);
    settle();
    EXPECT_TRUE(one->hasLogin());
    EXPECT_EQ(changes, 0);
    one->refresh(Force::no);
    answer(account, 401, "");
    EXPECT_FALSE(one->hasLogin());
    EXPECT_FALSE(hasToken());
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(one->message(), Optional(HasSubstr("sign in")));
}

TEST_F(RefreshTest, aSuccessClearsTheMessage) {
    one->refresh(Force::no);
    open(account).fail(HttpFailure::unreachable);
    settle();
    ASSERT_NE(one->message(), std::nullopt);
    one->refresh(Force::no);
    answer(account, 200, accountBody());
    EXPECT_EQ(one->message(), std::nullopt);
}

TEST_F(RefreshTest, theFetchThatShowingTheAccountCausesLeavesWhatIsShown) {
    openAnOldLink();
    ASSERT_TRUE(one->isRefreshing());
    answer(account, 200, accountBody("u1", "new@example.org"));
    EXPECT_EQ(one->account()->user.email, "new@example.org");
    EXPECT_THAT(one->message(), Optional(HasSubstr("This sign-in link expired")));
    one->synchronizeLogin(RefreshExisting::yes);
    answer(account, 200, accountBody());
    EXPECT_EQ(one->message(), std::nullopt) << "by the next one it has been read";
}

TEST_F(RefreshTest, aFetchThatFailsIsSaidEvenWhereSomethingElseIsShown) {
    openAnOldLink();
    open(account).fail(HttpFailure::unreachable);
    settle();
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t connect")));
}

TEST_F(RefreshTest, aTokenThatAnotherCopyStoredMeanwhileIsNotCleared) {
    one->refresh(Force::no);
    tokenItem() = tokenOf('n');
    answer(account, 401, "");
    EXPECT_FALSE(one->hasLogin());
    EXPECT_EQ(tokenItem(), tokenOf('n'));
}

TEST_F(RefreshTest, aResultThatArrivesAfterTheSignOutChangesNothing) {
    one->refresh(Force::no);
    auto& call = open(account);
    one->signOut();
    EXPECT_FALSE(call.isOpen()) << "nobody waits for it any more";
    EXPECT_FALSE(one->isRefreshing());
    settle();
    EXPECT_EQ(one->account(), std::nullopt);
    EXPECT_EQ(one->message(), std::nullopt);
    EXPECT_FALSE(one->hasLogin());
}

TEST_F(RefreshTest, aResultOnItsWayWhenTheUserSignsOutChangesNothing) {
    one->refresh(Force::no);
    open(account).answer(200, accountBody()); // the waiting coroutine has not resumed yet
    one->signOut();
    settle();
    EXPECT_EQ(one->account(), std::nullopt);
    EXPECT_FALSE(one->isRefreshing());
}

TEST_F(RefreshTest, signingOutOfflineClearsTheLoginAtOnce) {
    one->signOut();
    EXPECT_FALSE(one->hasLogin());
    EXPECT_FALSE(hasToken());
    EXPECT_EQ(changes, 1);
    const HttpRequest& sent = open(logout).request;
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.body, "");
    EXPECT_EQ(sent.totalLimit, std::chrono::seconds(20));
    open(logout).fail(HttpFailure::unreachable);
    settle();
    EXPECT_EQ(one->message(), std::nullopt);
}

TEST_F(RefreshTest, aSignOutThatTheStoreRefusesIsSaidAndTheSessionEndedAllTheSame) {
    secrets.removeFailure = SecureStoreFailure::locked;
    one->signOut();
    EXPECT_FALSE(one->hasLogin());
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t access your login")));
    EXPECT_EQ(asked(logout), 1);
}

TEST_F(RefreshTest, signingOutWithoutALoginAsksNobody) {
    secrets.items.clear();
    const auto signedOut = copy();
    signedOut->signOut();
    EXPECT_TRUE(http.calls.empty());
}

TEST_F(RefreshTest, whenTheControllerGoesItsFetchGoesWithIt) {
    one->refresh(Force::no);
    one->refresh(Force::yes);
    one.reset();
    settle();
    EXPECT_EQ(http.open(), 0U);
}

TEST_F(RefreshTest, theOwnerIsKnownByTheAddressInAnyLetterCase) {
    EXPECT_FALSE(one->isUsageOwner());
    one->refresh(Force::no);
    answer(account, 200, accountBody("u1", "OWNER@Example.ORG"));
    EXPECT_TRUE(one->isUsageOwner());
    one->signOut();
    EXPECT_FALSE(one->isUsageOwner());
    EXPECT_FALSE(copy()->isUsageOwner());
}

TEST_F(RefreshTest, anyOtherAccountIsNotTheOwners) {
    one->refresh(Force::no);
    answer(account, 200, accountBody("u1", "ada@example.org"));
    EXPECT_FALSE(one->isUsageOwner());
}

using Loaded = Result<UsageReport, AccountFailure>;

QCoro::Task<> loadInto(AccountController& from, std::optional<Loaded>& loaded) {
    const auto loading = from.loadUsageReport();
    loaded = co_await loading;
}

TEST_F(RefreshTest, theReportIsReadWithTheToken) {
    std::optional<Loaded> loaded;
    loadInto(*one, loaded);
    EXPECT_EQ(open(report).request.headers.back().value, "Bearer " + tokenOf('t'));
    answer(report, 200, R"({"days":30,"rows":[{"day":"d","event":"app_opened","count":2}]})");
    ASSERT_TRUE(loaded && loaded->ok());
    EXPECT_EQ((*loaded)->rows.size(), 1U);
}

TEST_F(RefreshTest, aReportThatCannotBeReadFailsWithItsWordsAndKeepsTheLogin) {
    struct Row {
        int status;
        std::string body;
        std::string words;
    };
    const std::string unavailable = "Brinmoor is temporarily unavailable. Try again shortly.";
    for (const Row& row :
         {Row{401, "", "Please sign in again. Your saved library is still available."},
          Row{403, R"({"error":"Not yours."})", "Not yours."},
          Row{500, R"({"error":")" + std::string(401, 'x') + "\"}", unavailable},
          Row{302, "", unavailable},
          Row{200, "{}", "Brinmoor couldn’t verify your account. Please try again in a moment."}}) {
        std::optional<Loaded> loaded;
        loadInto(*one, loaded);
        answer(report, row.status, row.body);
        ASSERT_TRUE(loaded && !loaded->ok());
        EXPECT_EQ(loaded->error().errorDescription(), row.words);
        EXPECT_TRUE(one->hasLogin());
    }
    one->signOut();
    std::optional<Loaded> loaded;
    loadInto(*one, loaded);
    ASSERT_TRUE(loaded && !loaded->ok());
    EXPECT_EQ(loaded->error().cause, AccountFailure::Cause::signIn);
    EXPECT_EQ(asked(report), 5);
}

} // namespace
} // namespace brinmoor

#include "account/AccountKeychain.h"

#include "account/AccountLock.h"
#include "tests/account/AccountDesk.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace brinmoor {
namespace {

using Cause = AccountFailure::Cause;
using Completion = AccountKeychain::Completion;

class AccountKeychainTest : public AccountDesk {
protected:
    [[nodiscard]] PendingEmailSignIn request(std::uint8_t number = 1) const {
        return {Uuid{{number}},
                std::string(43, 'v'),
                std::string(43, static_cast<char>('a' + number)),
                "ada@example.org",
                "Ada",
                clock.present};
    }
    void store(PendingEmailSignIn stored) { requestItem() = encoded(stored); }
    void storeConsumed(PendingEmailSignIn stored) {
        stored.consumed = true;
        store(std::move(stored));
    }

    AccountKeychain store_ = keychain();
};

template <class T>
Cause causeOf(const Result<T, AccountFailure>& result) {
    EXPECT_FALSE(result.ok());
    return result.ok() ? Cause::system : result.error().cause;
}

template <class T>
T valueOf(const Result<T, AccountFailure>& result) {
    EXPECT_TRUE(result.ok());
    return result.ok() ? *result : T();
}

TEST_F(AccountKeychainTest, anEmptyStoreGivesNothing) {
    EXPECT_EQ(valueOf(store_.token()), std::nullopt);
    EXPECT_EQ(valueOf(store_.pending()), std::nullopt);
}

TEST_F(AccountKeychainTest, theFolderOfTheLockIsMadeForTheUserAlone) {
    ASSERT_TRUE(store_.token().ok());
    struct stat status {};
    ASSERT_EQ(::stat(folder.path("Brinmoor").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    ASSERT_EQ(::stat(folder.path("Brinmoor/account.lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(status.st_size, 0);
}

TEST_F(AccountKeychainTest, missingParentsOfTheFolderAreMadeToo) {
    AccountKeychain deep(secrets, clock, folder.path("a/b/Brinmoor"));
    EXPECT_TRUE(deep.token().ok());
    EXPECT_TRUE(std::filesystem::exists(folder.path("a/b/Brinmoor/account.lock")));
}

TEST_F(AccountKeychainTest, whileAnotherHoldsTheLockEveryOperationGivesUpAtOnce) {
    const auto other = AccountLock::take(folder.path("Brinmoor"));
    ASSERT_TRUE(other.ok());
    EXPECT_EQ(causeOf(store_.token()), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.pending()), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.save(request())), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.claimSignIn(linkOf(request()), {})), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.completeSignIn(request(), "t")), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.cancelSignIn(request().id)), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.clearToken("t")), Cause::accountBusy);
    EXPECT_EQ(causeOf(store_.signOut("t")), Cause::accountBusy);
    EXPECT_TRUE(secrets.items.empty());
}

TEST_F(AccountKeychainTest, theLockIsFreeAfterEachOperationWhateverItsEnd) {
    secrets.readFailure = SecureStoreFailure::failed;
    EXPECT_EQ(causeOf(store_.token()), Cause::keychain);
    EXPECT_TRUE(AccountLock::take(folder.path("Brinmoor")).ok());
    secrets.readFailure.reset();
    EXPECT_TRUE(store_.token().ok());
    EXPECT_TRUE(AccountLock::take(folder.path("Brinmoor")).ok());
}

TEST_F(AccountKeychainTest, aLockFileThatIsASymbolicLinkIsNotOpened) {
    ASSERT_TRUE(std::filesystem::create_directory(folder.path("Brinmoor")));
    std::ofstream(folder.path("elsewhere")) << "";
    std::filesystem::create_symlink(folder.path("elsewhere"), folder.path("Brinmoor/account.lock"));
    EXPECT_EQ(causeOf(store_.token()), Cause::keychain);
}

TEST_F(AccountKeychainTest, aFolderThatCannotBeMadeIsToldInTheSystemsWords) {
    std::ofstream(folder.path("Brinmoor")) << "a file";
    const auto failed = store_.token();
    EXPECT_EQ(causeOf(failed), Cause::system);
    EXPECT_EQ(failed.error().errorDescription(), "File exists");
    AccountKeychain below(secrets, clock, folder.path("Brinmoor/below"));
    EXPECT_EQ(causeOf(below.token()), Cause::system);
    std::filesystem::create_symlink(folder.path("nowhere"), folder.path("dangling"));
    AccountKeychain dangling(secrets, clock, folder.path("dangling"));
    EXPECT_EQ(dangling.token().error().errorDescription(), "File exists");
    AccountKeychain tooLong(secrets, clock, folder.path(std::string(300, 'x')));
    EXPECT_EQ(tooLong.token().error().errorDescription(), "File name too long");
}

TEST_F(AccountKeychainTest, everyFailureOfTheStoreIsTheKeychains) {
    for (const auto reason : {SecureStoreFailure::unavailable, SecureStoreFailure::locked,
                              SecureStoreFailure::failed}) {
        secrets.readFailure = reason;
        EXPECT_EQ(causeOf(store_.token()), Cause::keychain);
        EXPECT_EQ(causeOf(store_.pending()), Cause::keychain);
        EXPECT_EQ(causeOf(store_.claimSignIn(linkOf(request()), {})), Cause::keychain);
        EXPECT_EQ(causeOf(store_.completeSignIn(request(), "t")), Cause::keychain);
        EXPECT_EQ(causeOf(store_.cancelSignIn(request().id)), Cause::keychain);
        EXPECT_EQ(causeOf(store_.clearToken("t")), Cause::keychain);
        EXPECT_EQ(causeOf(store_.signOut("t")), Cause::keychain);
        secrets.readFailure.reset();
        secrets.writeFailure = reason;
        EXPECT_EQ(causeOf(store_.save(request())), Cause::keychain);
        secrets.writeFailure.reset();
    }
}

TEST_F(AccountKeychainTest, anEmptyTokenOrOneThatIsNoTextReadsAsNone) {
    tokenItem() = "";
    EXPECT_EQ(valueOf(store_.token()), std::nullopt);
    tokenItem() = "\xFF";
    EXPECT_EQ(valueOf(store_.token()), std::nullopt);
    tokenItem() = "any text";
    EXPECT_EQ(valueOf(store_.token()), "any text");
}

TEST_F(AccountKeychainTest, aRequestIsReadUntilItExpiresConsumedOrNot) {
    ASSERT_TRUE(store_.save(request()).ok());
    EXPECT_EQ(valueOf(store_.pending()), request());
    storeConsumed(request());
    clock.present.seconds += 899;
    ASSERT_TRUE(valueOf(store_.pending()));
    EXPECT_TRUE(valueOf(store_.pending())->consumed);
    clock.present.seconds += 1;
    EXPECT_EQ(valueOf(store_.pending()), std::nullopt);
    EXPECT_FALSE(hasRequest());
}

TEST_F(AccountKeychainTest, aBrokenRequestIsGoneAfterItsFirstReading) {
    for (const char* broken : {"", "{", "{}", "\xFF", "null"}) {
        requestItem() = broken;
        EXPECT_EQ(valueOf(store_.pending()), std::nullopt) << broken;
        EXPECT_FALSE(hasRequest()) << broken;
    }
    requestItem() = "broken";
    secrets.removeFailure = SecureStoreFailure::failed;
    EXPECT_EQ(causeOf(store_.pending()), Cause::keychain);
}

TEST_F(AccountKeychainTest, onlyAValidUnusedRequestIsSaved) {
    auto used = request();
    used.consumed = true;
    EXPECT_EQ(causeOf(store_.save(used)), Cause::callback);
    auto odd = request();
    odd.expiresAt.seconds += 1;
    EXPECT_EQ(causeOf(store_.save(odd)), Cause::callback);
    const auto late = request();
    clock.present.seconds += 900;
    EXPECT_EQ(causeOf(store_.save(late)), Cause::callback);
    EXPECT_FALSE(hasRequest());
    EXPECT_TRUE(store_.save(request()).ok());
}

TEST_F(AccountKeychainTest, aLinkIsClaimedOnceAndTheStoreKnowsIt) {
    store(request());
    const auto claim = valueOf(store_.claimSignIn(linkOf(request()), {}));
    ASSERT_TRUE(claim);
    EXPECT_EQ(claim->code, rightCode);
    EXPECT_TRUE(claim->request.consumed);
    EXPECT_EQ(storedRequest(), claim->request);
    EXPECT_FALSE(valueOf(store_.claimSignIn(linkOf(request()), {})));
}

TEST_F(AccountKeychainTest, aWrongLinkClaimsNothingAndLeavesTheRightOneGood) {
    EXPECT_FALSE(valueOf(store_.claimSignIn(linkOf(request()), {})));
    store(request());
    EXPECT_FALSE(valueOf(store_.claimSignIn(linkOf(request(2)), {})));
    EXPECT_EQ(storedRequest(), request());
    EXPECT_TRUE(valueOf(store_.claimSignIn(linkOf(request()), {})));
}

TEST_F(AccountKeychainTest, aLinkForAnotherAddressThanTheCurrentOneIsNotClaimed) {
    store(request());
    EXPECT_FALSE(valueOf(store_.claimSignIn(linkOf(request()), "eve@example.org")));
    EXPECT_FALSE(storedRequest().consumed);
    EXPECT_TRUE(valueOf(store_.claimSignIn(linkOf(request()), "ADA@Example.org")));
}

TEST_F(AccountKeychainTest, aClaimThatCannotBeRecordedHasNotHappened) {
    store(request());
    secrets.writeFailure = SecureStoreFailure::failed;
    EXPECT_EQ(causeOf(store_.claimSignIn(linkOf(request()), {})), Cause::keychain);
    secrets.writeFailure.reset();
    EXPECT_TRUE(valueOf(store_.claimSignIn(linkOf(request()), {})));
}

TEST_F(AccountKeychainTest, aCompletedSignInLeavesTheTokenAndNoRequest) {
    storeConsumed(request());
    EXPECT_EQ(valueOf(store_.completeSignIn(request(), "token")), Completion::stored);
    EXPECT_EQ(tokenItem(), "token");
    EXPECT_FALSE(hasRequest());
}

TEST_F(AccountKeychainTest, aSignInThatWasOvertakenStoresNoToken) {
    EXPECT_EQ(valueOf(store_.completeSignIn(request(), "token")), Completion::overtaken);
    store(request());
    EXPECT_EQ(valueOf(store_.completeSignIn(request(), "token")), Completion::overtaken);
    storeConsumed(request(2));
    EXPECT_EQ(valueOf(store_.completeSignIn(request(), "token")), Completion::overtaken);
    EXPECT_FALSE(hasToken());
    EXPECT_EQ(storedRequest().id, request(2).id);
}

TEST_F(AccountKeychainTest, aTokenWhoseRequestCannotBeEndedIsNotKept) {
    storeConsumed(request());
    secrets.removeFailure = SecureStoreFailure::failed;
    EXPECT_EQ(causeOf(store_.completeSignIn(request(), "token")), Cause::keychain);
    secrets.removeFailure.reset();
    storeConsumed(request());
    secrets.writeFailure = SecureStoreFailure::failed;
    EXPECT_EQ(causeOf(store_.completeSignIn(request(), "other")), Cause::keychain);
    EXPECT_TRUE(hasRequest());
}

TEST_F(AccountKeychainTest, anOlderTokenOutlivesASignInThatCannotBeKept) {
    tokenItem() = "older";
    storeConsumed(request());
    secrets.removeFailure = SecureStoreFailure::failed;
    EXPECT_EQ(causeOf(store_.completeSignIn(request(), "token")), Cause::keychain);
    EXPECT_EQ(tokenItem(), "older");
}

TEST_F(AccountKeychainTest, onlyTheRequestThatIsMeantIsCancelled) {
    store(request(2));
    EXPECT_TRUE(store_.cancelSignIn(request(1).id).ok());
    EXPECT_TRUE(store_.cancelSignIn(std::nullopt).ok());
    EXPECT_TRUE(hasRequest());
    EXPECT_TRUE(store_.cancelSignIn(request(2).id).ok());
    EXPECT_FALSE(hasRequest());
    EXPECT_TRUE(store_.cancelSignIn(request(2).id).ok());
}

TEST_F(AccountKeychainTest, aNewerTokenIsNotCleared) {
    tokenItem() = "newer";
    EXPECT_TRUE(store_.clearToken("older").ok());
    EXPECT_EQ(tokenItem(), "newer");
    EXPECT_TRUE(store_.clearToken("newer").ok());
    EXPECT_FALSE(hasToken());
    EXPECT_TRUE(store_.clearToken("newer").ok());
}

TEST_F(AccountKeychainTest, signingOutRemovesTheRequestAndItsOwnToken) {
    struct Row {
        const char* stored;
        std::optional<std::string> given;
        bool removes;
    };
    for (const Row& row : {Row{"mine", "mine", true}, Row{"theirs", "mine", false},
                           Row{"theirs", std::nullopt, false}, Row{"\xFF", std::nullopt, true},
                           Row{"\xFF", "mine", false}, Row{"", "", true}}) {
        tokenItem() = row.stored;
        store(request());
        EXPECT_TRUE(store_.signOut(row.given).ok());
        EXPECT_EQ(hasToken(), !row.removes) << row.stored;
        EXPECT_FALSE(hasRequest()) << row.stored;
    }
    secrets.items.clear();
    EXPECT_TRUE(store_.signOut("mine").ok());
}

} // namespace
} // namespace brinmoor

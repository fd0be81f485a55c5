// One copy of the account with the real network, against a service that behaves and misbehaves.

#include "account/AccountController.h"

#include "core/usage/UsageAccumulator.h"
#include "platform/linux/NetworkHttp.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemRandom.h"
#include "platform/memory/MemorySecureStore.h"
#include "tests/service/LocalService.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>

#include <atomic>
#include <semaphore>

namespace brinmoor {
namespace {

using ::testing::Eq;
using ::testing::HasSubstr;
using testing::HttpAnswer;
using testing::HttpWriter;
using ::testing::Optional;
using testing::settle;
using testing::waitUntil;
using Stage = AccountController::SignInStage;
using Force = AccountController::Force;

constexpr auto unavailable = "Brinmoor is temporarily unavailable. Try again shortly.";

class ServiceFlowTest : public ::testing::Test {
protected:
    ~ServiceFlowTest() override {
        one.reset();
        settle();
    }
    void askForMail(const char* address = "ada@example.org") {
        one->setSignInEmail(QString::fromUtf8(address));
        one->setSignInName(QStringLiteral("Ada"));
        one->sendSignInEmail();
        ASSERT_TRUE(waitUntil([&] { return one->signInStage() != Stage::sending; }));
    }
    void openNewestMail() { one->handleIncomingURL(service.mails().back().link); }
    void signIn() {
        askForMail();
        ASSERT_EQ(service.mails().size(), 1U);
        openNewestMail();
        ASSERT_TRUE(waitUntil([&] { return one->signInStage() == Stage::idle; }));
        ASSERT_TRUE(one->hasLogin());
    }
    [[nodiscard]] std::string token() {
        return secrets.items[{std::string(AccountKeychain::service),
                              std::string(AccountKeychain::tokenItem)}];
    }
    void answerAlways(const std::string& path, HttpAnswer answer) {
        service.interfere([path, answer](const auto& request) {
            return request.path == path ? std::optional(answer) : std::nullopt;
        });
    }
    void refresh(std::chrono::milliseconds timeout = std::chrono::seconds(15)) {
        one->refresh(Force::no, timeout);
        ASSERT_TRUE(waitUntil([&] { return !one->isRefreshing(); }));
    }

    testing::ScratchFolder folder;
    // What the service's threads wait for outlives them.
    std::counting_semaphore<> reached{0};
    std::counting_semaphore<> goOn{0};
    std::atomic<bool> gone = false;
    testing::LocalService service{
        {.mailFolder = folder.path("mails"), .ownerAddress = "ada@example.org"}};
    SystemClock clock;
    NetworkHttp http{service.certificate()};
    SystemRandom random;
    MemorySecureStore secrets;
    std::unique_ptr<AccountController> one = std::make_unique<AccountController>(
        AccountParts{clock, http, random, secrets, folder.path("Brinmoor"), service.address(),
                     "ada@example.org"});
};

TEST_F(ServiceFlowTest, aMailsLinkSignsInAndSigningOutEndsTheSession) {
    signIn();
    EXPECT_EQ(one->account()->user.name, "Ada");
    EXPECT_TRUE(service.isValid(token()));
    const std::string held = token();
    one->signOut();
    EXPECT_TRUE(waitUntil([&] { return !service.isValid(held); }));
}

TEST_F(ServiceFlowTest, aStrangersCertificateIsNotTrusted) {
    NetworkHttp stranger;
    one = std::make_unique<AccountController>(AccountParts{
        clock, stranger, random, secrets, folder.path("Brinmoor"), service.address(), ""});
    askForMail();
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t connect")));
    EXPECT_TRUE(service.requests().empty());
    one.reset();
}

TEST_F(ServiceFlowTest, aBuildThatNobodyConfiguredTalksToNoOne) {
    one = std::make_unique<AccountController>(
        AccountParts{clock, http, random, secrets, folder.path("Brinmoor"),
                     "https://service.brinmoor.invalid/", "owner@brinmoor.invalid"});
    askForMail();
    EXPECT_EQ(one->signInStage(), Stage::waiting);
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t connect")));
}

TEST_F(ServiceFlowTest, noTokenIsCarriedToAnotherAddress) {
    signIn();
    testing::HttpServer elsewhere([](const auto&) { return HttpAnswer{.body = "{}"}; });
    for (const int status : {301, 302, 303, 307, 308}) {
        answerAlways("/api/account",
                     {.status = status, .headers = {"Location: " + elsewhere.address()}});
        refresh();
        EXPECT_THAT(one->message(), Optional(Eq(unavailable))) << status;
    }
    EXPECT_EQ(elsewhere.requestCount(), 0U);
    EXPECT_TRUE(one->hasLogin());
}

TEST_F(ServiceFlowTest, aSessionThatTheServiceEndedIsEndedHereToo) {
    signIn();
    service.endAllSessions();
    refresh();
    EXPECT_FALSE(one->hasLogin());
    EXPECT_THAT(one->message(), Optional(HasSubstr("sign in again")));
    EXPECT_EQ(token(), "");
}

TEST_F(ServiceFlowTest, aServiceThatIsLateOrBreaksOffSignsNobodyOut) {
    signIn();
    answerAlways("/api/account", {.raw = [&](const HttpWriter&) { goOn.acquire(); }});
    refresh(std::chrono::milliseconds(200));
    goOn.release();
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t connect")));
    answerAlways("/api/account", {.raw = [](const HttpWriter& write) {
                     write("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n{\"account\"");
                 }});
    refresh();
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t connect")));
    EXPECT_TRUE(one->hasLogin());
    service.interfere(nullptr);
    refresh();
    EXPECT_EQ(one->message(), std::nullopt);
}

TEST_F(ServiceFlowTest, anAnswerWithoutEndIsNotReadToItsEnd) {
    signIn();
    answerAlways("/api/account", {.raw = [&](const HttpWriter& write) {
                     write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n\r\n");
                     const std::string blanks(65536, ' ');
                     while (write(blanks)) {
                     }
                     gone = true;
                 }});
    refresh();
    EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t verify")));
    EXPECT_TRUE(waitUntil([&] { return gone.load(); }));
}

TEST_F(ServiceFlowTest, wrongAnswersToTheExchangeStoreNothing) {
    for (const char* body :
         {"", "{}", "[1",
          R"({"accessToken":"short","account":{"user":{"id":"1","name":"","email":)"
          R"("ada@example.org"}}})"}) {
        askForMail();
        answerAlways("/api/auth/exchange", {.type = "application/json", .body = body});
        openNewestMail();
        ASSERT_TRUE(waitUntil([&] { return one->signInStage() == Stage::idle; }));
        EXPECT_THAT(one->message(), Optional(HasSubstr("couldn’t verify"))) << body;
        EXPECT_TRUE(token().empty());
        one->cancelSignIn();
    }
}

TEST_F(ServiceFlowTest, cancellingWhileTheServiceIsLateEndsTheNewSessionThere) {
    askForMail();
    service.interfere([&](const auto& request) -> std::optional<HttpAnswer> {
        if (request.path == "/api/auth/exchange") {
            reached.release();
            goOn.acquire();
        }
        return std::nullopt;
    });
    openNewestMail();
    ASSERT_TRUE(waitUntil([&] { return reached.try_acquire(); }));
    one->cancelSignIn();
    goOn.release();
    ASSERT_TRUE(waitUntil([&] { return service.requests().back() == "POST /api/auth/logout"; }));
    EXPECT_FALSE(one->hasLogin());
    EXPECT_EQ(one->message(), std::nullopt);
}

TEST_F(ServiceFlowTest, aControllerThatGoesWhileTheServiceIsLateLeavesNothing) {
    askForMail();
    service.interfere([&](const auto&) -> std::optional<HttpAnswer> {
        reached.release();
        goOn.acquire();
        return std::nullopt;
    });
    openNewestMail();
    ASSERT_TRUE(waitUntil([&] { return reached.try_acquire(); }));
    one.reset();
    goOn.release();
    settle();
    EXPECT_TRUE(token().empty());
}

TEST_F(ServiceFlowTest, theOwnerReadsWhatWasCounted) {
    signIn();
    EXPECT_TRUE(one->isUsageOwner());
    std::optional<Result<UsageReport, AccountFailure>> loaded;
    const auto load = [&]() -> QCoro::Task<> {
        const auto loading = one->loadUsageReport();
        loaded = co_await loading;
    };
    NetworkHttp other(service.certificate());
    const UsageBatch batch(clock.newUuid(), {{UsageEvent::linksSaved, 7}});
    bool sent = false;
    const Subscription upload = other.send({.method = "POST",
                                            .address = service.address() + "api/usage",
                                            .headers = {{"Content-Type", "application/json"}},
                                            .body = encoded(batch)},
                                           {.end = [&](auto) { sent = true; }});
    ASSERT_TRUE(waitUntil([&] { return sent; }));
    load();
    ASSERT_TRUE(waitUntil([&] { return loaded.has_value(); }));
    ASSERT_TRUE(loaded->ok());
    EXPECT_EQ((*loaded)->totals()[1], (UsageReport::Total{UsageEvent::linksSaved, 7}));
}

} // namespace
} // namespace brinmoor

#include "usage/UsageAnalytics.h"

#include "platform/linux/NetworkHttp.h"
#include "platform/memory/ManualClock.h"
#include "tests/support/HttpServer.h"
#include "tests/support/Waiting.h"

#include <gmock/gmock.h>

#include <mutex>

using namespace std::chrono_literals;

namespace brinmoor {
namespace {

using testing::HttpAnswer;
using testing::HttpServer;
using testing::Transport;
using testing::waitUntil;

/// A service that takes down what it is sent and answers as the test wants.
class UsageUploadTest : public ::testing::Test {
protected:
    UsageUploadTest() { analytics.configure(true); }

    void uploadOnce() {
        analytics.record(UsageEvent::linkOpened, 2);
        clock.advance(60s);
        ASSERT_TRUE(waitUntil([&] { return !analytics.isUploading(); }));
    }

    HttpAnswer answer{.status = 204};
    std::mutex guard;
    std::vector<testing::HttpRequest> seen;
    HttpServer server{[this](const testing::HttpRequest& request) {
                          const std::scoped_lock lock(guard);
                          seen.push_back(request);
                          return answer;
                      },
                      Transport::tls};
    ManualClock clock;
    UsageAnalytics analytics{clock,
                             [this] { return std::make_unique<NetworkHttp>(server.certificate()); },
                             server.address()};
};

TEST_F(UsageUploadTest, theServiceGetsTheTotalsAndNothingAboutTheUser) {
    answer.headers = {"Set-Cookie: id=1; Path=/"};
    uploadOnce();
    uploadOnce();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[1].method, "POST");
    EXPECT_EQ(seen[1].path, "/api/usage");
    EXPECT_EQ(decodeUsageBatch(seen[1].body)->counts.at("link_opened"), 2);
    EXPECT_THAT(seen[1].head, ::testing::Not(::testing::HasSubstr("Cookie")));
    EXPECT_THAT(seen[1].head, ::testing::Not(::testing::HasSubstr("Authorization")));
    EXPECT_EQ(seen[1].header("Content-Type"), "application/json");
    EXPECT_EQ(seen[1].header("User-Agent"), "Brinmoor");
}

TEST_F(UsageUploadTest, aRedirectIsNotFollowedAndAFailingStatusNotRetried) {
    HttpServer elsewhere([](const auto&) { return HttpAnswer{}; });
    for (const int status : {301, 302, 303, 307, 308, 401, 500}) {
        answer = {.status = status, .headers = {"Location: " + elsewhere.address()}};
        uploadOnce();
    }
    EXPECT_EQ(seen.size(), 7U);
    EXPECT_EQ(elsewhere.requestCount(), 0U);
}

} // namespace
} // namespace brinmoor

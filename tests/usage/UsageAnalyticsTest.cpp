#include "usage/UsageAnalytics.h"

#include "platform/memory/ManualClock.h"
#include "platform/memory/MemoryHttp.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;

namespace brinmoor {
namespace {

/// Lets a test look into every session that was made, also one that has gone.
class Sessions {
public:
    std::vector<std::shared_ptr<MemoryHttp>> all;

    UsageAnalytics::SessionFactory factory() {
        return [this]() -> std::unique_ptr<Http> {
            all.push_back(std::make_shared<MemoryHttp>());
            return std::make_unique<View>(all.back());
        };
    }
    [[nodiscard]] std::size_t requests() const {
        std::size_t count = 0;
        for (const auto& session : all)
            count += session->calls.size();
        return count;
    }

private:
    class View final : public Http {
    public:
        explicit View(std::shared_ptr<MemoryHttp> seen) : seen_(std::move(seen)) {}
        Subscription send(HttpRequest request, HttpListener listener) override {
            return seen_->send(std::move(request), std::move(listener));
        }

    private:
        std::shared_ptr<MemoryHttp> seen_;
    };
};

class UsageAnalyticsTest : public ::testing::Test {
protected:
    [[nodiscard]] MemoryHttp::Call& call(std::size_t at) {
        return *sessions.all.back()->calls.at(at);
    }
    [[nodiscard]] static UsageCounts one(UsageEvent event) { return {{event, 1}}; }

    ManualClock clock;
    Sessions sessions;
    std::optional<UsageAnalytics> analytics{std::in_place, clock, sessions.factory(),
                                            "https://service.test"};
};

TEST_F(UsageAnalyticsTest, nothingHappensUntilItIsSwitchedOn) {
    analytics->record(UsageEvent::appOpened);
    EXPECT_TRUE(analytics->accumulator().counts().empty());
    EXPECT_TRUE(sessions.all.empty());
    EXPECT_EQ(clock.pending(), 0U);
}

TEST_F(UsageAnalyticsTest, onceAMinuteWhatWasCountedIsUploaded) {
    analytics->configure(true);
    analytics->record(UsageEvent::appOpened);
    analytics->record(UsageEvent::linksSaved, 3);
    clock.advance(59s);
    EXPECT_EQ(sessions.requests(), 0U);
    clock.advance(1s);
    ASSERT_EQ(sessions.requests(), 1U);
    const HttpRequest& sent = call(0).request;
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.address, "https://service.test/api/usage");
    EXPECT_THAT(sent.headers, ::testing::ElementsAre(HttpHeader{"Content-Type", "application/json"},
                                                     HttpHeader{"User-Agent", "Brinmoor"}));
    EXPECT_EQ(sent.silenceLimit, 10s);
    const auto batch = decodeUsageBatch(sent.body);
    ASSERT_TRUE(batch);
    EXPECT_THAT(batch->counts,
                ::testing::ElementsAre(std::pair("app_opened", 1), std::pair("links_saved", 3)));
    EXPECT_TRUE(analytics->accumulator().counts().empty());
}

TEST_F(UsageAnalyticsTest, aMinuteWithoutAnActionMakesNoRequest) {
    analytics->configure(true);
    clock.advance(10min);
    EXPECT_EQ(sessions.requests(), 0U);
    EXPECT_FALSE(analytics->isUploading());
    analytics->record(UsageEvent::linkOpened);
    clock.advance(1min);
    EXPECT_EQ(sessions.requests(), 1U);
}

TEST_F(UsageAnalyticsTest, everyAnswerIsTheSameAndABatchIsNeverSentTwice) {
    analytics->configure(true);
    std::set<Uuid> batches;
    const auto upload = [&] {
        analytics->record(UsageEvent::linkOpened);
        clock.advance(1min);
        const std::size_t last = sessions.requests() - 1;
        batches.insert(decodeUsageBatch(call(last).request.body)->batchID);
        return last;
    };
    for (const int status : {200, 204, 302, 401, 500}) {
        call(upload()).answer(status, "words");
        EXPECT_FALSE(analytics->isUploading()) << status;
    }
    call(upload()).fail(HttpFailure::timedOut);
    EXPECT_FALSE(call(upload()).redirect(307, "https://elsewhere.test/"));
    EXPECT_FALSE(analytics->isUploading());
    EXPECT_EQ(sessions.requests(), 7U);
    EXPECT_EQ(batches.size(), 7U);
    EXPECT_TRUE(analytics->accumulator().counts().empty());
}

TEST_F(UsageAnalyticsTest, whileAnUploadRunsATickPassesAndTheCountsStay) {
    analytics->configure(true);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(1min);
    analytics->record(UsageEvent::linkCopied);
    clock.advance(3min);
    EXPECT_EQ(sessions.requests(), 1U);
    EXPECT_EQ(analytics->accumulator().counts(), one(UsageEvent::linkCopied));
    call(0).answer(200, "");
    clock.advance(1min);
    EXPECT_EQ(sessions.requests(), 2U);
}

TEST_F(UsageAnalyticsTest, switchingOffDuringAnUploadGivesItUpAndForgetsEverything) {
    analytics->configure(true);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(1min);
    analytics->record(UsageEvent::linkCopied);
    auto& running = call(0);
    analytics->configure(false);
    EXPECT_FALSE(running.isOpen());
    EXPECT_FALSE(analytics->isUploading());
    EXPECT_EQ(sessions.all.back().use_count(), 1) << "the session has gone";
    EXPECT_EQ(clock.pending(), 0U);
    analytics->configure(true);
    EXPECT_TRUE(analytics->accumulator().counts().empty());
    clock.advance(1min);
    EXPECT_EQ(sessions.requests(), 1U);
}

TEST_F(UsageAnalyticsTest, switchingOffAndOnMakesANewSessionAndAWholeMinute) {
    analytics->configure(true);
    clock.advance(50s);
    analytics->configure(false);
    analytics->configure(true);
    EXPECT_EQ(sessions.all.size(), 2U);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(59s);
    EXPECT_EQ(sessions.requests(), 0U);
    clock.advance(1s);
    EXPECT_EQ(sessions.requests(), 1U);
}

TEST_F(UsageAnalyticsTest, switchingOnTwiceKeepsSessionAndCountsAndStartsTheMinuteAnew) {
    analytics->configure(true);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(50s);
    analytics->configure(true);
    EXPECT_EQ(sessions.all.size(), 1U);
    EXPECT_EQ(clock.pending(), 1U);
    clock.advance(59s);
    EXPECT_EQ(sessions.requests(), 0U);
    clock.advance(1s);
    EXPECT_EQ(sessions.requests(), 1U);
}

TEST_F(UsageAnalyticsTest, anEndThatComesAfterSwitchingOffAndOnLeavesTheNewUploadAlone) {
    analytics->configure(true);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(1min);
    const auto old = sessions.all.back()->calls.front();
    analytics->configure(false);
    analytics->configure(true);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(1min);
    old->answer(200, "");
    EXPECT_TRUE(analytics->isUploading());
}

TEST_F(UsageAnalyticsTest, whenItGoesItsUploadAndItsTimerGoToo) {
    analytics->configure(true);
    analytics->record(UsageEvent::linkOpened);
    clock.advance(1min);
    auto& running = call(0);
    analytics.reset();
    EXPECT_FALSE(running.isOpen());
    EXPECT_EQ(clock.pending(), 0U);
}

} // namespace
} // namespace brinmoor

#include "usage/OwnerUsageReport.h"

#include "tests/support/Waiting.h"

#include <QCoroFuture>
#include <QPromise>

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::settle;
using Answer = OwnerUsageReport::Answer;

/// A service that answers when the test says so.
class OwnerUsageReportTest : public ::testing::Test {
protected:
    QCoro::Task<Answer> ask() {
        ++asked;
        promise = std::make_shared<QPromise<Answer>>();
        promise->start();
        const QFuture<Answer> future = promise->future();
        const Answer answer = co_await future;
        co_return answer;
    }
    void answerWith(Answer answer) {
        promise->addResult(std::move(answer));
        promise->finish();
        settle();
    }

    int asked = 0;
    std::shared_ptr<QPromise<Answer>> promise;
    std::unique_ptr<OwnerUsageReport> section =
        std::make_unique<OwnerUsageReport>([this] { return ask(); });
};

TEST_F(OwnerUsageReportTest, beforeAnyReportThereIsOneButton) {
    EXPECT_EQ(section->buttonTitle(), u"Load owner report · last 30 days"_qs);
    EXPECT_FALSE(section->hasReport());
    EXPECT_TRUE(section->lines().empty());
    EXPECT_EQ(section->heading(), QString());
}

TEST_F(OwnerUsageReportTest, aReportShowsEveryEventWithItsSum) {
    section->load();
    EXPECT_TRUE(section->loading());
    EXPECT_EQ(section->buttonTitle(), u"Loading…"_qs);
    answerWith(
        UsageReport{30, {{"1", "links_saved", 1200}, {"2", "links_saved", 34}, {"2", "quit", 9}}});
    EXPECT_FALSE(section->loading());
    EXPECT_EQ(section->heading(), u"Anonymous activity · last 30 days (UTC)"_qs);
    const auto lines = section->lines();
    ASSERT_EQ(lines.size(), 9U);
    EXPECT_EQ(lines[0], (OwnerUsageReport::Line{u"App Opened"_qs, u"0"_qs}));
    EXPECT_EQ(lines[1], (OwnerUsageReport::Line{u"Links Saved"_qs, u"1234"_qs}));
    EXPECT_EQ(lines[8], (OwnerUsageReport::Line{u"Importance Labeled"_qs, u"0"_qs}));
    EXPECT_EQ(section->note(), u"Event totals, not unique people. Best-effort reporting excludes "
                               "opted-out and offline activity. Refresh to see new counts."_qs);
}

TEST_F(OwnerUsageReportTest, aFailureStandsInPlaceOfTheReport) {
    section->load();
    answerWith(UsageReport{30, {}});
    section->load();
    EXPECT_FALSE(section->hasReport());
    answerWith(failure(AccountFailure{AccountFailure::Cause::service, "Not yours."}));
    EXPECT_EQ(section->messageText(), u"Not yours."_qs);
    EXPECT_FALSE(section->hasReport());
    EXPECT_FALSE(section->loading());
    section->load();
    EXPECT_EQ(section->message(), std::nullopt);
    answerWith(UsageReport{7, {}});
    EXPECT_TRUE(section->hasReport());
}

TEST_F(OwnerUsageReportTest, whileALoadRunsNoOtherStarts) {
    section->load();
    section->load();
    EXPECT_EQ(asked, 1);
    answerWith(UsageReport{30, {}});
}

TEST_F(OwnerUsageReportTest, anAnswerThatComesAfterTheSectionHasGoneIsLost) {
    section->load();
    section.reset();
    answerWith(UsageReport{30, {}});
}

} // namespace
} // namespace brinmoor

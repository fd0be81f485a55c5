#include "core/usage/UsageAccumulator.h"

#include "tests/core/Generated.h"

#include <gmock/gmock.h>

#include <limits>

using namespace brinmoor;
using ::testing::Eq;
using ::testing::Optional;

namespace {

constexpr Uuid one{{1}};
constexpr Uuid other{{2}};

UsageAccumulator switchedOn() {
    UsageAccumulator accumulator;
    accumulator.configure(true);
    return accumulator;
}

} // namespace

TEST(UsageEvent, hasTheseNamesInThisOrder) {
    constexpr std::array<std::pair<const char*, const char*>, 9> names{{
        {"app_opened", "App Opened"},
        {"links_saved", "Links Saved"},
        {"clipboard_saved", "Clipboard Saved"},
        {"note_saved", "Note Saved"},
        {"tags_saved", "Tags Saved"},
        {"link_opened", "Link Opened"},
        {"link_copied", "Link Copied"},
        {"links_archived", "Links Archived"},
        {"importance_labeled", "Importance Labeled"},
    }};
    ASSERT_EQ(allUsageEvents.size(), names.size());
    for (std::size_t at = 0; at < names.size(); ++at) {
        EXPECT_EQ(static_cast<std::size_t>(allUsageEvents[at]), at);
        EXPECT_EQ(wireName(allUsageEvents[at]), names[at].first);
        EXPECT_EQ(title(allUsageEvents[at]), names[at].second);
        EXPECT_EQ(usageEvent(names[at].first), allUsageEvents[at]);
    }
    for (const char* unknown : {"", "App_opened", "app_opened ", "appOpened", "quit"})
        EXPECT_EQ(usageEvent(unknown), std::nullopt) << unknown;
}

TEST(UsageAccumulator, countsNothingUntilItIsSwitchedOn) {
    UsageAccumulator accumulator;
    accumulator.record(UsageEvent::linkOpened);
    EXPECT_TRUE(accumulator.counts().empty());
    EXPECT_EQ(accumulator.drain(one), std::nullopt);
    accumulator.configure(true);
    EXPECT_TRUE(accumulator.counts().empty());
    accumulator.record(UsageEvent::linkOpened);
    EXPECT_EQ(accumulator.counts(), (UsageCounts{{UsageEvent::linkOpened, 1}}));
}

TEST(UsageAccumulator, aCountBelowOneLeavesNoEntry) {
    auto accumulator = switchedOn();
    for (const std::int64_t count :
         {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()})
        accumulator.record(UsageEvent::linksSaved, count);
    EXPECT_TRUE(accumulator.counts().empty());
}

TEST(UsageAccumulator, moreThanAThousandOfAnEventAreNotCounted) {
    auto accumulator = switchedOn();
    accumulator.record(UsageEvent::linksSaved, 5000);
    EXPECT_EQ(accumulator.counts().at(UsageEvent::linksSaved), 1000);
    accumulator.record(UsageEvent::linksSaved);
    accumulator.record(UsageEvent::linksSaved, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(accumulator.counts().at(UsageEvent::linksSaved), 1000);
    accumulator.record(UsageEvent::linkOpened, 999);
    accumulator.record(UsageEvent::linkOpened, 2);
    EXPECT_EQ(accumulator.counts().at(UsageEvent::linkOpened), 1000);
}

TEST(UsageAccumulator, switchingOffForgetsAndSwitchingOnAgainStartsFromZero) {
    auto accumulator = switchedOn();
    accumulator.record(UsageEvent::noteSaved);
    accumulator.configure(true);
    EXPECT_EQ(accumulator.counts().size(), 1U);
    accumulator.configure(false);
    accumulator.record(UsageEvent::noteSaved);
    accumulator.configure(true);
    EXPECT_EQ(accumulator.drain(one), std::nullopt);
}

TEST(UsageAccumulator, aDrainTakesEverythingOnce) {
    auto accumulator = switchedOn();
    EXPECT_EQ(accumulator.drain(one), std::nullopt);
    accumulator.record(UsageEvent::appOpened);
    accumulator.record(UsageEvent::linksSaved, 3);
    const auto batch = accumulator.drain(one);
    ASSERT_TRUE(batch);
    EXPECT_EQ(batch->batchID, one);
    EXPECT_THAT(batch->counts,
                ::testing::ElementsAre(std::pair("app_opened", 1), std::pair("links_saved", 3)));
    EXPECT_TRUE(accumulator.counts().empty());
    EXPECT_EQ(accumulator.drain(one), std::nullopt);
}

TEST(UsageAccumulator, keepsToItsLimitsWhateverIsRecorded) {
    tests::forSeeds(500, [](tests::Generated& generated) {
        auto accumulator = switchedOn();
        UsageCounts expected;
        for (int i = 0; i < 30; ++i) {
            const UsageEvent event = generated.oneOf(allUsageEvents);
            const auto count = static_cast<std::int64_t>(generated.below(400)) - 50;
            accumulator.record(event, count);
            if (count > 0)
                expected[event] = std::min<std::int64_t>(expected[event] + count, 1000);
        }
        EXPECT_EQ(accumulator.counts(), expected);
    });
}

TEST(UsageBatch, differsFromAnotherOfTheSameCounts) {
    const UsageCounts counts{{UsageEvent::linkCopied, 2}};
    EXPECT_EQ(UsageBatch(one, counts), UsageBatch(one, counts));
    EXPECT_NE(UsageBatch(one, counts), UsageBatch(other, counts));
}

TEST(UsageBatch, holdsCountsFromOneToAThousandOnly) {
    EXPECT_TRUE(UsageBatch(one, {{UsageEvent::linkCopied, 0}, {UsageEvent::linkOpened, -4}})
                    .counts.empty());
    EXPECT_EQ(UsageBatch(one, {{UsageEvent::linkCopied, 1001}}).counts.at("link_copied"), 1000);
}

TEST(UsageBatchRecord, isAnObjectWithTwoKeys) {
    UsageBatch batch(*Uuid::parse("e621e1f8-c36c-495a-93fc-0c247a3e6e5f"),
                     {{UsageEvent::appOpened, 1}, {UsageEvent::linksSaved, 3}});
    EXPECT_EQ(encoded(batch), R"({"batchID":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F",)"
                              R"("counts":{"app_opened":1,"links_saved":3}})");
    EXPECT_EQ(encoded(UsageBatch(batch.batchID, {})),
              R"({"batchID":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","counts":{}})");
    EXPECT_THAT(decodeUsageBatch(encoded(batch)), Optional(Eq(batch)));
}

TEST(UsageBatchRecord, isReadWithoutAnyCheckButOfTypes) {
    const std::string id = R"("batchID":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F")";
    const auto read = decodeUsageBatch("{" + id + R"(,"counts":{"quit":-5,"app_opened":9999}})");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->counts.at("quit"), -5);
    EXPECT_EQ(read->counts.at("app_opened"), 9999);
    for (const std::string& broken :
         {std::string(), std::string("{}"), "{" + id + "}", "{" + id + R"(,"counts":[]})",
          "{" + id + R"(,"counts":{"a":"1"}})", "{" + id + R"(,"counts":{"a":1.5}})",
          std::string(R"({"batchID":"x","counts":{}})")})
        EXPECT_EQ(decodeUsageBatch(broken), std::nullopt) << broken;
}

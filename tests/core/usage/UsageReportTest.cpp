#include "core/usage/UsageReport.h"

#include <gtest/gtest.h>

#include <limits>

using namespace brinmoor;

namespace {

std::int64_t totalOf(const UsageReport& report, UsageEvent wanted) {
    for (const auto& [event, count] : report.totals())
        if (event == wanted)
            return count;
    return -1;
}

} // namespace

TEST(UsageReport, withoutRowsShowsEveryEventWithZero) {
    const auto totals = UsageReport{30, {}}.totals();
    ASSERT_EQ(totals.size(), allUsageEvents.size());
    for (std::size_t at = 0; at < totals.size(); ++at)
        EXPECT_EQ(totals[at], (UsageReport::Total{allUsageEvents[at], 0}));
}

TEST(UsageReport, addsTheDaysOfAnEventUp) {
    const UsageReport report{30,
                             {{"2025-01-01", "links_saved", 3},
                              {"2025-01-02", "links_saved", 4},
                              {"2025-01-02", "app_opened", 1}}};
    EXPECT_EQ(totalOf(report, UsageEvent::linksSaved), 7);
    EXPECT_EQ(totalOf(report, UsageEvent::appOpened), 1);
    EXPECT_EQ(report.rows[0].id(), "2025-01-01links_saved");
}

TEST(UsageReport, rowsOfUnknownEventsChangeNoLine) {
    const UsageReport report{30, {{"d", "quit", 5}, {"d", "", 5}, {"d", "Links_saved", 5}}};
    for (const auto& [event, count] : report.totals())
        EXPECT_EQ(count, 0);
}

TEST(UsageReport, aSumThatDoesNotFitStaysAtTheEnd) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    const UsageReport report{30, {{"1", "link_opened", most}, {"2", "link_opened", most}}};
    EXPECT_EQ(totalOf(report, UsageEvent::linkOpened), most);
}

TEST(UsageReportRecord, isReadFromItsTwoKeys) {
    const auto read = decodeUsageReport(
        R"({"days":30,"rows":[{"day":"2025-01-01","event":"app_opened","count":12}],"more":0})");
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, (UsageReport{30, {{"2025-01-01", "app_opened", 12}}}));
    for (const char* broken :
         {"", "{}", R"({"days":30})", R"({"rows":[]})", R"({"days":"30","rows":[]})",
          R"({"days":30,"rows":{}})", R"({"days":30,"rows":[1]})",
          R"({"days":30,"rows":[{"day":"d","event":"e"}]})",
          R"({"days":30,"rows":[{"day":1,"event":"e","count":1}]})",
          R"({"days":30,"rows":[{"day":"d","event":"e","count":"1"}]})",
          R"({"days":30,"rows":[{"day":"d","event":"e","count":1},null]})"})
        EXPECT_EQ(decodeUsageReport(broken), std::nullopt) << broken;
}

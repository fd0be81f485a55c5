#include "core/library/LinkDay.h"

#include "core/text/Calendar.h"
#include "core/text/Fold.h"
#include "tests/core/Generated.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <random>

namespace brinmoor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Instant utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0) {
    const std::chrono::sys_days date{std::chrono::year(year) / static_cast<int>(month) /
                                     static_cast<int>(day)};
    const auto seconds = std::chrono::sys_seconds(date).time_since_epoch().count();
    return {static_cast<double>(seconds + hour * 3600 + minute * 60) - unixSecondsAtInstantZero};
}

SavedLink savedAt(Instant moment, const std::string& title = "") {
    SavedLink link;
    link.createdAt = moment;
    link.title = title;
    return link;
}

std::vector<SavedLink> values(const LinkPointers& links) {
    std::vector<SavedLink> result;
    for (const SavedLink* link : links)
        result.push_back(*link);
    return result;
}

std::vector<std::string> labels(const std::vector<Instant>& moments, Instant now,
                                std::string_view timeZone) {
    std::vector<SavedLink> links;
    for (const Instant moment : moments)
        links.push_back(savedAt(moment));
    std::vector<std::string> result;
    for (const LinkDay& day : LinkDay::group(pointers(links), now, timeZone))
        result.push_back(day.label);
    return result;
}

class LinkDayGroup : public ::testing::Test {
protected:
    void SetUp() override { text::setUserLocale("en_US.UTF-8"); }
    void TearDown() override { text::setUserLocale(""); }
};

TEST_F(LinkDayGroup, ofAnEmptyLibraryIsEmpty) {
    EXPECT_THAT(LinkDay::group({}, utc(2025, 6, 1), ""), IsEmpty());
}

TEST_F(LinkDayGroup, putsALinkOf2359UnderYesterday) {
    EXPECT_THAT(labels({utc(2025, 11, 3, 23, 59), utc(2025, 11, 4)}, utc(2025, 11, 4, 0, 1), ""),
                ElementsAre("Today", "Yesterday"));
}

TEST_F(LinkDayGroup, namesTheYearOfAnotherYearOnly) {
    EXPECT_THAT(labels({utc(2025, 11, 4), utc(2025, 10, 28), utc(2024, 11, 4), utc(2026, 1, 1)},
                       utc(2025, 11, 4, 12), ""),
                ElementsAre("Jan 1, 2026", "Today", "Tuesday, Oct 28", "Nov 4, 2024"));
}

TEST_F(LinkDayGroup, takesYesterdayAcrossTheYear) {
    EXPECT_THAT(labels({utc(2024, 12, 31, 8), utc(2024, 12, 30)}, utc(2025, 1, 1, 8), ""),
                ElementsAre("Yesterday", "Dec 30, 2024"));
}

TEST_F(LinkDayGroup, followsTheUsersLocale) {
    text::setUserLocale("de_DE.UTF-8");
    EXPECT_THAT(labels({utc(2025, 10, 28), utc(2024, 11, 4)}, utc(2025, 11, 4, 12), ""),
                ElementsAre("Dienstag, 28. Okt.", "4. Nov. 2024"));
}

TEST_F(LinkDayGroup, isInEnglishWithoutALanguage) {
    for (const char* locale : {"", "C", "C.UTF-8", "POSIX"}) {
        text::setUserLocale(locale);
        EXPECT_THAT(labels({utc(2025, 10, 28)}, utc(2025, 11, 4, 12), ""),
                    ElementsAre("Tuesday, Oct 28"));
    }
}

TEST_F(LinkDayGroup, cutsTheDaysAtMidnightOfTheTimeZone) {
    const std::vector moments{utc(2025, 11, 4, 3), utc(2025, 11, 4, 6)};
    const Instant now = utc(2025, 11, 4, 20);
    EXPECT_THAT(labels(moments, now, ""), ElementsAre("Today"));
    EXPECT_THAT(labels(moments, now, "America/New_York"), ElementsAre("Today", "Yesterday"));
    EXPECT_THAT(labels(moments, now, "No/Such_Zone"), ElementsAre("Today"));
    const SavedLink link = savedAt(moments[1]);
    const auto days = LinkDay::group({&link}, now, "America/New_York");
    EXPECT_EQ(days.at(0).id, utc(2025, 11, 4, 5));
}

TEST_F(LinkDayGroup, knowsDaysOf23And25Hours) {
    // New York puts its clocks back on November 2 and forward on March 9.
    EXPECT_THAT(labels({utc(2025, 11, 3, 4, 30), utc(2025, 11, 2, 4), utc(2025, 11, 2, 3, 59)},
                       utc(2025, 11, 3, 4, 59), "America/New_York"),
                ElementsAre("Today", "Yesterday"));
    EXPECT_THAT(labels({utc(2025, 3, 10, 4), utc(2025, 3, 10, 3, 59), utc(2025, 3, 9, 4, 59)},
                       utc(2025, 3, 10, 12), "America/New_York"),
                ElementsAre("Today", "Yesterday", "Saturday, Mar 8"));
}

TEST_F(LinkDayGroup, startsADayWithoutMidnightAtItsFirstMoment) {
    // In São Paulo the clocks went from 24:00 of November 3, 2018 to 1:00.
    const SavedLink link = savedAt(utc(2018, 11, 4, 12));
    const auto days = LinkDay::group({&link}, utc(2018, 11, 4, 13), "America/Sao_Paulo");
    EXPECT_EQ(days.at(0).id, utc(2018, 11, 4, 3));
}

TEST_F(LinkDayGroup, knowsTheDayBeforeADayThatWasLeftOut) {
    // Samoa crossed the date line: December 29 was followed by 31.
    EXPECT_THAT(labels({utc(2011, 12, 30, 9)}, utc(2011, 12, 30, 12), "Pacific/Apia"),
                ElementsAre("Yesterday"));
}

TEST_F(LinkDayGroup, sortsEachDayNewestFirstAndKeepsEqualTimesInOrder) {
    const Instant day = utc(2025, 11, 4);
    const std::vector links{savedAt({day.seconds + 1}, "a"), savedAt({day.seconds - 9}, "b"),
                            savedAt({day.seconds + 2}, "c"), savedAt({day.seconds + 1}, "d"),
                            savedAt({day.seconds + 1}, "e")};
    const auto days = LinkDay::group(pointers(links), {day.seconds + 5}, "");
    ASSERT_EQ(days.size(), 2U);
    EXPECT_THAT(days[0].links, ElementsAre(&links[2], &links[0], &links[3], &links[4]));
    EXPECT_THAT(days[1].links, ElementsAre(&links[1]));
}

TEST_F(LinkDayGroup, isTheGroupingOfEachLinkByItsOwnDay) {
    tests::forSeeds(60, [](tests::Generated& generated) {
        const std::string zone = generated.oneOf(std::vector<std::string>{
            "", "America/New_York", "Asia/Kathmandu", "Pacific/Apia", "America/Sao_Paulo"});
        const text::Calendar calendar(zone);
        std::map<Instant, std::vector<SavedLink>, std::greater<>> expected;
        std::vector<SavedLink> links;
        for (std::size_t left = generated.below(300); left > 0; --left) {
            // Around the end of 2011, when Apia left a day out; often at equal times.
            const double hours = static_cast<double>(generated.below(2000));
            links.push_back(
                savedAt({utc(2011, 11, 20).seconds + hours * 1800}, std::to_string(left)));
            expected[calendar.startOfDay(links.back().createdAt)].push_back(links.back());
        }
        const auto days = LinkDay::group(pointers(links), utc(2012, 1, 1), zone);
        ASSERT_EQ(days.size(), expected.size());
        auto day = days.begin();
        for (auto& [start, members] : expected) {
            std::ranges::stable_sort(members, std::ranges::greater(), &SavedLink::createdAt);
            EXPECT_EQ(day->id, start) << zone;
            EXPECT_EQ(values((day++)->links), members) << zone;
        }
    });
}

TEST_F(LinkDayGroup, losesNoLinkWhateverItsTime) {
    constexpr std::uint64_t seed = 61;
    std::mt19937_64 random(seed);
    for (const char* zone : {"", "America/New_York", "Asia/Kathmandu", "Pacific/Apia"}) {
        std::vector<SavedLink> links;
        for (int count = 0; count < 2000; ++count) {
            const double scale = count % 50 == 0 ? 1e18 : 1e9;
            links.push_back(savedAt({(static_cast<double>(random() >> 11) / 9e15 - 0.5) * scale}));
        }
        std::size_t found = 0;
        double last = 1e300;
        for (const LinkDay& day : LinkDay::group(pointers(links), utc(2025, 1, 1), zone)) {
            found += day.links.size();
            EXPECT_LT(day.id.seconds, last) << zone << " seed " << seed;
            last = day.id.seconds;
        }
        EXPECT_EQ(found, links.size()) << zone << " seed " << seed;
    }
}

} // namespace
} // namespace brinmoor

#include "core/library/LinkDay.h"

#include "core/search/LinkQuery.h"
#include "core/text/Calendar.h"
#include "core/text/Wording.h"

#include <algorithm>
#include <functional>
#include <map>

namespace brinmoor {

namespace {

/// The links of each day, newest day first. Links come mostly in order of time, so the day of one
/// is looked for where the last one lay before the calendar is asked.
class DayTable {
public:
    using Links = std::vector<SavedLink*>;
    using Days = std::map<Instant, Links, std::greater<>>;

    explicit DayTable(const text::Calendar& calendar) : calendar_(calendar) {}

    void add(SavedLink& link) {
        const Instant moment = link.createdAt;
        if (links_ == nullptr || moment < start_ || moment >= end_)
            enterDayOf(moment);
        links_->push_back(&link);
    }

    Days& days() { return days_; }

private:
    void enterDayOf(Instant moment) {
        start_ = calendar_.startOfDay(moment);
        end_ = calendar_.dayAfter(start_);
        links_ = &days_[start_];
    }

    const text::Calendar& calendar_;
    Days days_;
    Instant start_;
    Instant end_;
    Links* links_ = nullptr;
};

std::string labelOf(const text::Calendar& calendar, Instant day, Instant now) {
    const Instant today = calendar.startOfDay(now);
    if (day == today)
        return text::worded("Today");
    if (day == calendar.dayBefore(today))
        return text::worded("Yesterday");
    return calendar.year(day) == calendar.year(now) ? calendar.weekdayAndDate(day)
                                                    : calendar.dateWithYear(day);
}

struct Ranked {
    int score;
    SavedLink* link;
};

bool isBefore(const Ranked& a, const Ranked& b) {
    return a.score != b.score ? a.score > b.score : a.link->createdAt > b.link->createdAt;
}

} // namespace

std::vector<LinkDay> LinkDay::group(std::vector<SavedLink> links, Instant now,
                                    std::string_view timeZone) {
    const text::Calendar calendar(timeZone);
    DayTable table(calendar);
    for (SavedLink& link : links)
        table.add(link);
    std::vector<LinkDay> result;
    for (auto& [start, members] : table.days()) {
        std::stable_sort(
            members.begin(), members.end(),
            [](const SavedLink* a, const SavedLink* b) { return a->createdAt > b->createdAt; });
        LinkDay& day = result.emplace_back(LinkDay{start, labelOf(calendar, start, now), {}});
        day.links.reserve(members.size());
        for (SavedLink* link : members)
            day.links.push_back(std::move(*link));
    }
    return result;
}

LinkDay LinkDay::bestMatches(std::vector<SavedLink> links, std::string_view query) {
    LinkQuery asked(query);
    std::vector<Ranked> ranked;
    ranked.reserve(links.size());
    for (SavedLink& link : links)
        ranked.push_back({asked.rank(link).value_or(0), &link});
    std::stable_sort(ranked.begin(), ranked.end(), isBefore);
    LinkDay day{distantPast, text::worded("Best matches"), {}};
    day.links.reserve(ranked.size());
    for (const Ranked& each : ranked)
        day.links.push_back(std::move(*each.link));
    return day;
}

} // namespace brinmoor

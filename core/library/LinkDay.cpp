#include "core/library/LinkDay.h"

#include "core/text/Calendar.h"

#include <algorithm>
#include <functional>
#include <map>

namespace brinmoor {

namespace {

/// The links of each day, newest day first. Links come mostly in order of time, so the day of one
/// is looked for where the last one lay before the calendar is asked.
class DayTable {
public:
    using Links = std::vector<const SavedLink*>;
    using Days = std::map<Instant, Links, std::greater<>>;

    explicit DayTable(const text::Calendar& calendar) : calendar_(calendar) {}

    void add(const SavedLink& link) {
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
        return "Today";
    if (day == calendar.dayBefore(today))
        return "Yesterday";
    return calendar.year(day) == calendar.year(now) ? calendar.weekdayAndDate(day)
                                                    : calendar.dateWithYear(day);
}

} // namespace

std::vector<LinkDay> LinkDay::group(const std::vector<SavedLink>& links, Instant now,
                                    std::string_view timeZone) {
    const text::Calendar calendar(timeZone);
    DayTable table(calendar);
    for (const SavedLink& link : links)
        table.add(link);
    std::vector<LinkDay> result;
    for (auto& [start, members] : table.days()) {
        std::stable_sort(
            members.begin(), members.end(),
            [](const SavedLink* a, const SavedLink* b) { return a->createdAt > b->createdAt; });
        LinkDay& day = result.emplace_back(LinkDay{start, labelOf(calendar, start, now), {}});
        day.links.reserve(members.size());
        for (const SavedLink* link : members)
            day.links.push_back(*link);
    }
    return result;
}

} // namespace brinmoor

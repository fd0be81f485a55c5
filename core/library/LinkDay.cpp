#include "core/library/LinkDay.h"

#include "core/search/LinkQuery.h"
#include "core/text/Calendar.h"
#include "core/text/Wording.h"

#include <algorithm>

namespace brinmoor {

namespace {

struct Ranked {
    int score;
    Instant createdAt;
    const SavedLink* link;
};
using Ranking = std::vector<Ranked>;

bool isBefore(const Ranked& a, const Ranked& b) {
    return a.score != b.score ? a.score > b.score : a.createdAt > b.createdAt;
}

/// By score, then newest first; links that tie keep their order.
void sort(Ranking& ranking) {
    // Mostly they are: a library is kept newest first.
    if (!std::is_sorted(ranking.begin(), ranking.end(), isBefore))
        std::stable_sort(ranking.begin(), ranking.end(), isBefore);
}

LinkPointers linksOf(Ranking::const_iterator begin, Ranking::const_iterator end) {
    LinkPointers links(static_cast<std::size_t>(end - begin));
    std::transform(begin, end, links.begin(), [](const Ranked& each) { return each.link; });
    return links;
}

/// The headings, as they are at one moment.
class Labels {
public:
    Labels(const text::Calendar& calendar, Instant now)
        : calendar_(calendar), today_(calendar.startOfDay(now)),
          yesterday_(calendar.dayBefore(today_)), year_(calendar.year(now)) {}

    [[nodiscard]] std::string of(Instant day) const {
        if (day == today_)
            return text::worded("Today");
        if (day == yesterday_)
            return text::worded("Yesterday");
        return calendar_.year(day) == year_ ? calendar_.weekdayAndDate(day)
                                            : calendar_.dateWithYear(day);
    }

private:
    const text::Calendar& calendar_;
    Instant today_;
    Instant yesterday_;
    int year_;
};

} // namespace

LinkPointers pointers(const std::vector<SavedLink>& links) {
    LinkPointers all(links.size());
    std::transform(links.begin(), links.end(), all.begin(),
                   [](const SavedLink& link) { return &link; });
    return all;
}

std::vector<LinkDay> LinkDay::group(const LinkPointers& links, Instant now,
                                    std::string_view timeZone) {
    Ranking byTime;
    byTime.reserve(links.size());
    for (const SavedLink* link : links)
        byTime.push_back({0, link->createdAt, link});
    sort(byTime);
    const text::Calendar calendar(timeZone);
    const Labels labels(calendar, now);
    std::vector<LinkDay> days;
    for (auto begin = byTime.begin(); begin != byTime.end();) {
        const Instant start = calendar.startOfDay(begin->createdAt);
        const auto end = std::find_if(begin + 1, byTime.end(), [&](const Ranked& each) {
            return each.createdAt < start && calendar.startOfDay(each.createdAt) != start;
        });
        days.push_back({start, labels.of(start), linksOf(begin, end)});
        begin = end;
    }
    return days;
}

LinkDay LinkDay::bestMatches(const LinkPointers& links, std::string_view query) {
    LinkQuery asked(query);
    Ranking ranking;
    ranking.reserve(links.size());
    for (const SavedLink* link : links)
        ranking.push_back({asked.rank(*link).value_or(0), link->createdAt, link});
    sort(ranking);
    return {distantPast, text::worded("Best matches"), linksOf(ranking.begin(), ranking.end())};
}

} // namespace brinmoor

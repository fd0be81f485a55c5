#include "core/usage/UsageReport.h"

#include "core/text/SmallJson.h"

#include <limits>

namespace brinmoor {
namespace {

std::int64_t sum(std::int64_t one, std::int64_t other) {
    std::int64_t both = 0;
    if (!__builtin_add_overflow(one, other, &both))
        return both;
    return other < 0 ? std::numeric_limits<std::int64_t>::min()
                     : std::numeric_limits<std::int64_t>::max();
}

std::optional<UsageReport::Row> row(const text::JsonElement& element) {
    text::JsonObject object;
    if (element.get(object) != simdjson::SUCCESS)
        return std::nullopt;
    auto day = text::textField(object, "day");
    auto event = text::textField(object, "event");
    const auto count = text::wholeField(object, "count");
    if (!day || !event || !count)
        return std::nullopt;
    return UsageReport::Row{std::move(*day), std::move(*event), *count};
}

} // namespace

std::vector<UsageReport::Total> UsageReport::totals() const {
    std::vector<Total> totals;
    for (const UsageEvent event : allUsageEvents) {
        Total total{event, 0};
        for (const Row& row : rows)
            if (row.event == wireName(event))
                total.count = sum(total.count, row.count);
        totals.push_back(total);
    }
    return totals;
}

std::optional<UsageReport> decodeUsageReport(std::string_view json) {
    const text::SmallJson parsed(json);
    text::JsonObject object;
    simdjson::dom::array rows;
    if (parsed.root().get(object) != simdjson::SUCCESS ||
        object.at_key("rows").get(rows) != simdjson::SUCCESS)
        return std::nullopt;
    const auto days = text::wholeField(object, "days");
    if (!days)
        return std::nullopt;
    UsageReport report{*days, {}};
    for (const auto element : rows) {
        auto read = row(element);
        if (!read)
            return std::nullopt;
        report.rows.push_back(std::move(*read));
    }
    return report;
}

} // namespace brinmoor

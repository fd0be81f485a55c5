#pragma once

#include "core/usage/UsageEvent.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// What all users sent, as the service's owner reads it.
struct UsageReport {
    struct Row {
        std::string day;   ///< as the service writes it
        std::string event; ///< a wire name, perhaps one that this program doesn't know
        std::int64_t count = 0;

        [[nodiscard]] std::string id() const { return day + event; }
        friend bool operator==(const Row&, const Row&) = default;
    };
    /// The sum of one event over all days.
    struct Total {
        UsageEvent event = UsageEvent::appOpened;
        std::int64_t count = 0;
        friend bool operator==(const Total&, const Total&) = default;
    };

    std::int64_t days = 0;
    std::vector<Row> rows;

    /// One for each known event, in their order; rows of unknown events count nowhere. A sum that
    /// does not fit stays at the nearest number that does.
    [[nodiscard]] std::vector<Total> totals() const;

    friend bool operator==(const UsageReport&, const UsageReport&) = default;
};

/// Absent unless every value is there and of its type.
[[nodiscard]] std::optional<UsageReport> decodeUsageReport(std::string_view json);

} // namespace brinmoor

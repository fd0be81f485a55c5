#pragma once

#include "core/library/Instant.h"

#include <memory>
#include <string>
#include <string_view>

namespace brinmoor::text {

/// Days and their labels in one time zone, in the calendar and words of the user's locale. An
/// object is not to be used by two threads at once.
class Calendar {
public:
    /// An IANA name; "" and unknown names are UTC.
    explicit Calendar(std::string_view timeZone);
    Calendar(const Calendar&) = delete;
    Calendar& operator=(const Calendar&) = delete;
    ~Calendar();

    /// The first moment of the day that holds `moment`.
    [[nodiscard]] Instant startOfDay(Instant moment) const;
    /// The start of the day that ends where this day starts.
    [[nodiscard]] Instant dayBefore(Instant startOfDay) const;
    /// The start of the day that begins where this day ends.
    [[nodiscard]] Instant dayAfter(Instant startOfDay) const;
    [[nodiscard]] int year(Instant moment) const;

    /// Template "EEEE MMM d", such as "Tuesday, Nov 3".
    [[nodiscard]] std::string weekdayAndDate(Instant moment) const;
    /// Template "MMM d yyyy", such as "Nov 3, 2025".
    [[nodiscard]] std::string dateWithYear(Instant moment) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace brinmoor::text

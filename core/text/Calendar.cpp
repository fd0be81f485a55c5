#include "core/text/Calendar.h"

#include "core/text/Fold.h"

#include <unicode/calendar.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace brinmoor::text {

namespace {

constexpr double millisecondsPerSecond = 1000;

UDate toDate(Instant moment) {
    return (moment.seconds + unixSecondsAtInstantZero) * millisecondsPerSecond;
}

Instant toInstant(UDate date) {
    return {date / millisecondsPerSecond - unixSecondsAtInstantZero};
}

/// The texts of the product are English, so a locale without a language reads English dates.
icu::Locale labelLocale() {
    const std::string& name = userLocale();
    if (name.empty() || name == "C" || name.starts_with("C.") || name == "POSIX")
        return icu::Locale::getUS();
    return icu::Locale::createCanonical(name.c_str());
}

std::unique_ptr<icu::TimeZone> zone(std::string_view name) {
    if (name.empty())
        return std::unique_ptr<icu::TimeZone>(icu::TimeZone::getGMT()->clone());
    const icu::StringPiece piece(name.data(), static_cast<int32_t>(name.size()));
    return std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(piece)));
}

std::unique_ptr<icu::Calendar> makeCalendar(std::string_view timeZone, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(zone(timeZone).release(), locale, status));
    if (U_FAILURE(status) || !calendar) {
        status = U_ZERO_ERROR;
        calendar = std::make_unique<icu::GregorianCalendar>(zone(timeZone).release(), status);
    }
    // A day whose midnight is skipped begins later; one that has it twice, with the first.
    calendar->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    return calendar;
}

} // namespace

struct Calendar::Parts {
    explicit Parts(std::string_view timeZone) {
        const icu::Locale locale = labelLocale();
        calendar = makeCalendar(timeZone, locale);
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
            icu::DateTimePatternGenerator::createInstance(locale, status));
        weekdayAndDate = format(patterns.get(), u"EEEEMMMd", locale);
        dateWithYear = format(patterns.get(), u"MMMdyyyy", locale);
    }

    [[nodiscard]] std::unique_ptr<icu::SimpleDateFormat>
    format(icu::DateTimePatternGenerator* patterns, const char16_t* skeleton,
           const icu::Locale& locale) const {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString pattern(skeleton);
        if (patterns != nullptr)
            pattern = patterns->getBestPattern(pattern, status);
        auto result = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
        result->setCalendar(*calendar);
        return result;
    }

    std::unique_ptr<icu::Calendar> calendar;
    std::unique_ptr<icu::SimpleDateFormat> weekdayAndDate;
    std::unique_ptr<icu::SimpleDateFormat> dateWithYear;
};

namespace {

std::string formatted(const icu::SimpleDateFormat& format, Instant moment) {
    icu::UnicodeString text;
    std::string result;
    format.format(toDate(moment), text).toUTF8String(result);
    return result;
}

} // namespace

Calendar::Calendar(std::string_view timeZone) : parts_(std::make_unique<Parts>(timeZone)) {}

Calendar::~Calendar() = default;

Instant Calendar::startOfDay(Instant moment) const {
    UErrorCode status = U_ZERO_ERROR;
    icu::Calendar& calendar = *parts_->calendar;
    calendar.setTime(toDate(moment), status);
    for (const auto field : {UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_SECOND, UCAL_MILLISECOND})
        calendar.set(field, 0);
    const UDate start = calendar.getTime(status);
    return U_SUCCESS(status) ? toInstant(start) : moment;
}

Instant Calendar::dayBefore(Instant startOfDay_) const {
    // Not by the number of the day: a place that crossed the date line lacks one.
    return startOfDay({startOfDay_.seconds - 1});
}

Instant Calendar::dayAfter(Instant startOfDay_) const {
    // The longest day, on which clocks are put back, has fewer than 36 hours, and the shortest
    // with the half of the next one has more.
    constexpr double safelyInNextDay = 36.0 * 3600;
    return startOfDay({startOfDay_.seconds + safelyInNextDay});
}

int Calendar::year(Instant moment) const {
    UErrorCode status = U_ZERO_ERROR;
    parts_->calendar->setTime(toDate(moment), status);
    return parts_->calendar->get(UCAL_EXTENDED_YEAR, status);
}

std::string Calendar::weekdayAndDate(Instant moment) const {
    return formatted(*parts_->weekdayAndDate, moment);
}

std::string Calendar::dateWithYear(Instant moment) const {
    return formatted(*parts_->dateWithYear, moment);
}

} // namespace brinmoor::text

#pragma once

#include <compare>

namespace brinmoor {

/// A point in time: seconds, with their fraction, since 2001-01-01T00:00:00 UTC. Always finite.
struct Instant {
    double seconds = 0;

    friend auto operator<=>(const Instant&, const Instant&) = default;
};

/// Seconds from 1970-01-01T00:00:00 UTC to the zero of Instant.
inline constexpr double unixSecondsAtInstantZero = 978307200.0;

/// The first moment of the year 1, before anything that is kept.
inline constexpr Instant distantPast{-63114076800.0};

} // namespace brinmoor

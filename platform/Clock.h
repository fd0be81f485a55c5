#pragma once

#include "core/library/Instant.h"
#include "core/library/Uuid.h"

#include <chrono>
#include <functional>
#include <string>

#include "platform/Subscription.h"

namespace brinmoor {

/// The present, delays and random identifiers: what the deciding code is given and never takes.
/// Main thread.
class Clock {
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;
    /// The IANA name of the user's time zone.
    [[nodiscard]] virtual std::string timeZone() const = 0;
    /// A new random identifier (version 4).
    [[nodiscard]] virtual Uuid newUuid() = 0;
    /// Calls `work` once on the main thread after `delay`, unless the subscription went before.
    [[nodiscard]] virtual Subscription after(std::chrono::milliseconds delay,
                                             std::function<void()> work) = 0;
};

} // namespace brinmoor

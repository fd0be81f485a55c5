#pragma once

#include "platform/Clock.h"

namespace brinmoor {

/// The computer's clock; delays run in the event loop of the main thread and end with their
/// subscription.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Instant now() const override;
    /// "UTC" when the system names no zone.
    [[nodiscard]] std::string timeZone() const override;
    /// From the kernel's random source.
    [[nodiscard]] Uuid newUuid() override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> work) override;
};

} // namespace brinmoor

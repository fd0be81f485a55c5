#pragma once

#include "platform/Clock.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>

namespace brinmoor {

/// A clock that stands still until a test moves it.
class ManualClock final : public Clock {
public:
    /// What now() answers. Setting it is like setting a wall clock: no delayed work runs.
    Instant present;
    std::string zone = "UTC";
    /// What newUuid() hands out first; after that, identifiers that count up.
    std::deque<Uuid> nextUuids;

    [[nodiscard]] Instant now() const override { return present; }
    [[nodiscard]] std::string timeZone() const override { return zone; }
    [[nodiscard]] Uuid newUuid() override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> work) override;

    /// Lets time pass: work that comes due runs in its order, each at its own present, and work
    /// that it schedules runs too if it comes due in the same span.
    void advance(std::chrono::milliseconds span);
    /// How much work is still to come.
    [[nodiscard]] std::size_t pending() const { return due_->size(); }

private:
    struct Moment {
        std::chrono::milliseconds at{};
        std::uint64_t order = 0;
        friend auto operator<=>(const Moment&, const Moment&) = default;
    };
    using Due = std::map<Moment, std::function<void()>>;

    void moveTo(std::chrono::milliseconds at);

    std::chrono::milliseconds elapsed_{};
    std::uint64_t order_ = 0;
    std::uint64_t uuids_ = 0;
    std::shared_ptr<Due> due_ = std::make_shared<Due>();
};

} // namespace brinmoor

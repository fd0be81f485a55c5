#pragma once

#include "core/usage/UsageAccumulator.h"
#include "platform/Http.h"
#include "platform/Subscription.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace brinmoor {

class Clock;

/// Counts what the user does and tells the service the totals, without a word about who it is.
/// Nothing is kept for the next run, nothing is sent twice, and no failure is shown. Main thread.
class UsageAnalytics {
public:
    /// Makes a network of the analytics' own: the counts never go over a connection that anything
    /// else goes over, so that nobody can tell whose they are.
    using SessionFactory = std::function<std::unique_ptr<Http>()>;

    static constexpr std::chrono::seconds interval{60};
    static constexpr std::chrono::seconds requestLimit{10};

    /// `baseURL` is https and may end in "/". Off until it is configured.
    UsageAnalytics(Clock& clock, SessionFactory makeSession, std::string baseURL);
    UsageAnalytics(const UsageAnalytics&) = delete;
    UsageAnalytics& operator=(const UsageAnalytics&) = delete;
    /// Gives up an upload that runs.
    ~UsageAnalytics();

    /// Switches counting on or off. Off forgets what was counted and gives up what is on its way;
    /// on, even when it was on before, the first upload comes a whole interval later.
    void configure(bool enabled);
    /// One action, or several of a kind.
    void record(UsageEvent event, std::int64_t count = 1);

    [[nodiscard]] const UsageAccumulator& accumulator() const noexcept { return accumulator_; }
    [[nodiscard]] bool isUploading() const noexcept { return upload_.has_value(); }

private:
    void schedule();
    void flush();
    void uploaded(const Uuid& id);
    [[nodiscard]] HttpRequest requestFor(const UsageBatch& batch) const;

    /// The one upload in flight.
    struct Upload {
        Uuid id;
        Subscription call;
    };

    Clock& clock_;
    SessionFactory makeSession_;
    std::string address_;
    UsageAccumulator accumulator_;
    bool enabled_ = false;
    Subscription timer_;
    std::unique_ptr<Http> session_; ///< only while enabled
    std::optional<Upload> upload_;  ///< after the session: it goes first
};

} // namespace brinmoor

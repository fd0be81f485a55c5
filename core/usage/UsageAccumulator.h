#pragma once

#include "core/library/Uuid.h"
#include "core/usage/UsageEvent.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

using UsageCounts = std::map<UsageEvent, std::int64_t>;

/// The most that one batch tells of one event; what goes beyond is not counted.
inline constexpr std::int64_t mostOfOneEvent = 1000;

/// One upload. Its random identifier is the only one it carries.
struct UsageBatch {
    Uuid batchID;
    std::map<std::string, std::int64_t> counts; ///< by wire name, each from 1 to 1000

    UsageBatch() = default;
    /// Drops what is below 1 and cuts what is above 1000.
    UsageBatch(Uuid id, const UsageCounts& totals);

    friend bool operator==(const UsageBatch&, const UsageBatch&) = default;
};

/// A JSON object with the keys "batchID" and "counts".
[[nodiscard]] std::string encoded(const UsageBatch& batch);
/// Absent unless both keys are there with values of their types; nothing more is checked.
[[nodiscard]] std::optional<UsageBatch> decodeUsageBatch(std::string_view json);

/// Totals since the last drain. Plain value; off until it is switched on.
class UsageAccumulator {
public:
    /// Switching off forgets what was counted.
    void configure(bool enabled);
    /// Nothing happens while it is off or when `count` is below 1.
    void record(UsageEvent event, std::int64_t count = 1);
    /// Takes the totals out, under a new identifier; absent when it is off or nothing was counted.
    [[nodiscard]] std::optional<UsageBatch> drain(Uuid id);

    [[nodiscard]] bool enabled() const noexcept { return enabled_; }
    [[nodiscard]] const UsageCounts& counts() const noexcept { return counts_; }

private:
    bool enabled_ = false;
    UsageCounts counts_;
};

} // namespace brinmoor

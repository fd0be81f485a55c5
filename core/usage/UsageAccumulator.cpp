#include "core/usage/UsageAccumulator.h"

#include "core/text/SmallJson.h"

#include <algorithm>
#include <utility>

namespace brinmoor {

UsageBatch::UsageBatch(Uuid id, const UsageCounts& totals) : batchID(id) {
    for (const auto& [event, count] : totals)
        if (count >= 1)
            counts.emplace(wireName(event), std::min(count, mostOfOneEvent));
}

std::string encoded(const UsageBatch& batch) {
    std::string json = "{\"batchID\":" + text::quoted(batch.batchID.string()) + ",\"counts\":{";
    bool isFirst = true;
    for (const auto& [name, count] : batch.counts) {
        json += std::exchange(isFirst, false) ? "" : ",";
        json += text::quoted(name) + ":" + std::to_string(count);
    }
    return json + "}}";
}

std::optional<UsageBatch> decodeUsageBatch(std::string_view json) {
    const text::SmallJson parsed(json);
    text::JsonObject object;
    text::JsonObject counts;
    if (parsed.root().get(object) != simdjson::SUCCESS ||
        object.at_key("counts").get(counts) != simdjson::SUCCESS)
        return std::nullopt;
    const auto spelled = text::textField(object, "batchID");
    const auto id = spelled ? Uuid::parse(*spelled) : std::nullopt;
    if (!id)
        return std::nullopt;
    UsageBatch batch;
    batch.batchID = *id;
    for (const auto member : counts) {
        const auto count = text::wholeField(counts, member.key);
        if (!count)
            return std::nullopt;
        batch.counts.insert_or_assign(std::string(member.key), *count);
    }
    return batch;
}

void UsageAccumulator::configure(bool enabled) {
    enabled_ = enabled;
    if (!enabled)
        counts_.clear();
}

void UsageAccumulator::record(UsageEvent event, std::int64_t count) {
    if (!enabled_ || count < 1)
        return;
    std::int64_t& total = counts_[event];
    total = std::min(total + std::min(count, mostOfOneEvent), mostOfOneEvent);
}

std::optional<UsageBatch> UsageAccumulator::drain(Uuid id) {
    if (!enabled_ || counts_.empty())
        return std::nullopt;
    return UsageBatch(id, std::exchange(counts_, {}));
}

} // namespace brinmoor

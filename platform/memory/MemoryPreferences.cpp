#include "platform/memory/MemoryPreferences.h"

namespace brinmoor {

std::optional<PreferenceValue> MemoryPreferences::object(std::string_view key) const {
    const auto found = values.find(key);
    if (found == values.end())
        return std::nullopt;
    return found->second;
}

bool MemoryPreferences::set(std::string_view key, std::optional<PreferenceValue> value) {
    if (object(key) == value)
        return writesSucceed;
    if (value)
        values.insert_or_assign(std::string(key), std::move(*value));
    else
        values.erase(std::string(key));
    if (const auto found = observers_.find(key); found != observers_.end())
        found->second.tell();
    return writesSucceed;
}

Subscription MemoryPreferences::observe(std::string_view key, std::function<void()> changed) {
    return observers_[std::string(key)].add(std::move(changed));
}

} // namespace brinmoor

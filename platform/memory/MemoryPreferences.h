#pragma once

#include "platform/Observers.h"
#include "platform/Preferences.h"

#include <map>
#include <string>

namespace brinmoor {

/// Preferences that last as long as the object.
class MemoryPreferences final : public Preferences {
public:
    /// What is stored: to set before the code under test runs and to read after it.
    std::map<std::string, PreferenceValue, std::less<>> values;
    /// What set() answers; the value stays in force either way.
    bool writesSucceed = true;

    [[nodiscard]] std::optional<PreferenceValue> object(std::string_view key) const override;
    bool set(std::string_view key, std::optional<PreferenceValue> value) override;
    [[nodiscard]] Subscription observe(std::string_view key,
                                       std::function<void()> changed) override;

private:
    std::map<std::string, Observers<>, std::less<>> observers_;
};

} // namespace brinmoor

#pragma once

#include "platform/Subscription.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace brinmoor {

/// Bytes kept in a preference; a type of their own so that they are never taken for a text.
struct PreferenceData {
    std::string bytes;
    friend bool operator==(const PreferenceData&, const PreferenceData&) = default;
};

using PreferenceValue = std::variant<bool, std::string, PreferenceData>;

/// The typed store of what the program remembers between runs. Absent is not false, and a value
/// of one type is never read as another. Main thread; safe with two copies of the program running:
/// a write changes its own key only, and a change made by the other copy is seen.
class Preferences {
public:
    virtual ~Preferences() = default;

    /// Absent for a key that was never set.
    [[nodiscard]] virtual std::optional<PreferenceValue> object(std::string_view key) const = 0;
    /// Written at once; absent removes the key. A value that can't be written stays in force for
    /// this run, and the result is false.
    virtual bool set(std::string_view key, std::optional<PreferenceValue> value) = 0;
    /// `changed` is called on the main thread after a change of `key` by either copy.
    [[nodiscard]] virtual Subscription observe(std::string_view key,
                                               std::function<void()> changed) = 0;

    /// False when absent or not a boolean.
    [[nodiscard]] bool boolean(std::string_view key) const;
    /// `absent` when absent or not a boolean.
    [[nodiscard]] bool boolean(std::string_view key, bool absent) const;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) const;
    [[nodiscard]] std::optional<std::string> data(std::string_view key) const;
};

} // namespace brinmoor

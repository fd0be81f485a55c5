#include "platform/Preferences.h"

namespace brinmoor {
namespace {

template <class T>
std::optional<T> valueOf(const Preferences& preferences, std::string_view key) {
    auto value = preferences.object(key);
    if (auto* held = value ? std::get_if<T>(&*value) : nullptr)
        return std::move(*held);
    return std::nullopt;
}

} // namespace

bool Preferences::boolean(std::string_view key) const {
    return boolean(key, false);
}

bool Preferences::boolean(std::string_view key, bool absent) const {
    return valueOf<bool>(*this, key).value_or(absent);
}

std::optional<std::string> Preferences::text(std::string_view key) const {
    return valueOf<std::string>(*this, key);
}

std::optional<std::string> Preferences::data(std::string_view key) const {
    auto value = valueOf<PreferenceData>(*this, key);
    if (!value)
        return std::nullopt;
    return std::move(value->bytes);
}

} // namespace brinmoor

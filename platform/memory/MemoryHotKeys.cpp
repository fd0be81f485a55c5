#include "platform/memory/MemoryHotKeys.h"

#include <algorithm>

namespace brinmoor {

bool MemoryHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                   std::uint32_t id) {
    const Combination combination{keyCode, modifiers};
    const bool held = std::any_of(registered.begin(), registered.end(), [&](const auto& entry) {
        return entry.first != id && entry.second == combination;
    });
    if (held || refused.contains(combination))
        return false;
    registered.insert_or_assign(id, combination);
    return true;
}

void MemoryHotKeys::unregisterHotKey(std::uint32_t id) {
    registered.erase(id);
}

bool MemoryHotKeys::press(Combination combination) {
    const auto found = std::find_if(registered.begin(), registered.end(),
                                    [&](const auto& entry) { return entry.second == combination; });
    if (found == registered.end())
        return false;
    const auto id = found->first;
    if (pressed)
        pressed(id);
    return true;
}

void MemoryHotKeys::withdraw(std::uint32_t id) {
    if (registered.erase(id) > 0 && lost)
        lost(id);
}

} // namespace brinmoor

#include "core/usage/UsageEvent.h"

#include <algorithm>

namespace brinmoor {
namespace {

/// In the order of the cases.
constexpr std::array<std::string_view, allUsageEvents.size()> wireNames{
    "app_opened",  "links_saved", "clipboard_saved", "note_saved",        "tags_saved",
    "link_opened", "link_copied", "links_archived",  "importance_labeled"};

constexpr char upper(char letter) noexcept {
    return static_cast<char>(letter - 'a' + 'A');
}

} // namespace

std::string_view wireName(UsageEvent event) noexcept {
    return wireNames[static_cast<std::size_t>(event)];
}

std::optional<UsageEvent> usageEvent(std::string_view wireName) noexcept {
    const auto found = std::ranges::find(wireNames, wireName);
    if (found == wireNames.end())
        return std::nullopt;
    return allUsageEvents[static_cast<std::size_t>(found - wireNames.begin())];
}

std::string title(UsageEvent event) {
    std::string words(wireName(event));
    std::ranges::replace(words, '_', ' ');
    for (std::size_t place = 0; place < words.size(); ++place)
        if (place == 0 || words[place - 1] == ' ')
            words[place] = upper(words[place]);
    return words;
}

} // namespace brinmoor

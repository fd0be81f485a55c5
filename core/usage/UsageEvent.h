#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

/// The kinds of action that are counted. No link, title, note, tag or address ever enters a count.
enum class UsageEvent {
    appOpened,
    linksSaved,
    clipboardSaved,
    noteSaved,
    tagsSaved,
    linkOpened,
    linkCopied,
    linksArchived,
    importanceLabeled
};

inline constexpr std::array allUsageEvents{
    UsageEvent::appOpened,  UsageEvent::linksSaved,    UsageEvent::clipboardSaved,
    UsageEvent::noteSaved,  UsageEvent::tagsSaved,     UsageEvent::linkOpened,
    UsageEvent::linkCopied, UsageEvent::linksArchived, UsageEvent::importanceLabeled};

/// "app_opened", …: the name on the wire.
[[nodiscard]] std::string_view wireName(UsageEvent event) noexcept;
/// The case with this name on the wire; absent for any other text.
[[nodiscard]] std::optional<UsageEvent> usageEvent(std::string_view wireName) noexcept;
/// "App Opened", …
[[nodiscard]] std::string title(UsageEvent event);

} // namespace brinmoor

#pragma once

#include "core/tabs/BrowserTabSnapshot.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which of the open tabs may be closed. Pure, any thread. Both plans come sorted by browser,
/// window and place, each ascending.
namespace brinmoor::TabCleanupPlanner {

/// What can go without asking: every empty tab, and of the web pages that stand several times in
/// one window all but one. The active tab stays, else the leftmost. The same page in two windows
/// is no duplicate.
[[nodiscard]] std::vector<BrowserTabSnapshot>
duplicateAndEmptyCandidates(const std::vector<BrowserTabSnapshot>& tabs);

/// The web pages on one of the domains or a subdomain of one, active tabs among them. Entries that
/// are no domain count for nothing.
[[nodiscard]] std::vector<BrowserTabSnapshot>
domainCandidates(const std::vector<BrowserTabSnapshot>& tabs,
                 const std::vector<std::string>& domains);

/// The bare lower-case host of what somebody typed as a website, without dots at its ends and
/// without a leading "www."; absent when there is none, or a blank, a user or a password in it.
[[nodiscard]] std::optional<std::string> normalizedDomain(std::string_view value);

} // namespace brinmoor::TabCleanupPlanner

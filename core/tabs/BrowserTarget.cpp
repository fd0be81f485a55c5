#include "core/tabs/BrowserTarget.h"

#include <algorithm>
#include <iterator>

namespace brinmoor::BrowserTarget {

std::optional<std::string> resolve(const std::optional<std::string>& front,
                                   const std::set<std::string>& supported,
                                   const std::set<std::string>& running,
                                   const std::optional<std::string>& remembered,
                                   const std::vector<std::string>& visible) {
    const auto canBeMeant = [&](const std::string& browser) {
        return supported.contains(browser) && running.contains(browser);
    };
    if (front && canBeMeant(*front))
        return front;
    if (remembered && canBeMeant(*remembered))
        return remembered;
    if (const auto seen = std::ranges::find_if(visible, canBeMeant); seen != visible.end())
        return *seen;
    std::vector<std::string> candidates;
    std::ranges::copy_if(running, std::back_inserter(candidates), canBeMeant);
    if (candidates.size() != 1)
        return std::nullopt;
    return candidates.front();
}

} // namespace brinmoor::BrowserTarget

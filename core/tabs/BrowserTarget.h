#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

/// Which browser a capture means. Pure, any thread.
namespace brinmoor::BrowserTarget {

/// The first that is both supported and running of: the front application, the remembered
/// browser, the owners of the visible windows from front to back; else the only supported one
/// that runs; else absent.
[[nodiscard]] std::optional<std::string> resolve(const std::optional<std::string>& front,
                                                 const std::set<std::string>& supported,
                                                 const std::set<std::string>& running,
                                                 const std::optional<std::string>& remembered,
                                                 const std::vector<std::string>& visible);

} // namespace brinmoor::BrowserTarget

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor::tests {

/// The rules of search, one after the other and in the plainest words: what the real search is
/// held against.
[[nodiscard]] std::optional<int> plainScore(std::string_view query, const std::string& title,
                                            const std::string& url, const std::string& note,
                                            const std::vector<std::string>& tags,
                                            const std::string& extra);

} // namespace brinmoor::tests

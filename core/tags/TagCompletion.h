#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which known tags are offered while one is typed. Pure, any thread.
namespace brinmoor::TagCompletion {

/// The first `limit` of `suggestions` that contain the trimmed `input` and fold like none of
/// `selected`, each in the letter case of the input.
[[nodiscard]] std::vector<std::string> matches(std::string_view input,
                                               const std::vector<std::string>& selected,
                                               const std::vector<std::string>& suggestions,
                                               int limit);

/// The first of them; absent for an empty or blank input.
[[nodiscard]] std::optional<std::string> firstMatch(std::string_view input,
                                                    const std::vector<std::string>& selected,
                                                    const std::vector<std::string>& suggestions);

} // namespace brinmoor::TagCompletion

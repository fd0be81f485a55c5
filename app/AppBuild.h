#pragma once

#include <optional>
#include <string>

namespace brinmoor {

/// What was settled when this copy of the program was built.
struct AppBuild {
    std::string identifier;
    std::optional<bool> updatesEnabled; ///< the release's own switch
    std::optional<std::string> version; ///< "1.0"
    std::optional<std::string> number;  ///< which build of that version

    /// Whether this is the program as it is released, which alone looks for updates.
    [[nodiscard]] bool isOfficial() const;
    /// "1.0 (1)"; "development" stands for what is missing.
    [[nodiscard]] std::string versionText() const;
};

} // namespace brinmoor

#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brinmoor {

/// Where this program keeps its things, by the XDG base directory rules: a variable that is unset,
/// empty or not an absolute path counts as absent and its default is taken. Nothing is created.
struct Places {
    std::string libraryFile;       ///< the library's document
    std::string preferencesFolder; ///< of this program alone
    std::string preferencesFile;
    std::string iconsFolder; ///< kept copies of site icons
    std::string dataHome;    ///< where all programs keep the user's data
    std::string configHome;  ///< where all programs, browsers too, keep their configuration
    std::string home;
    /// Sockets of this run of the desktop; absent when the session has no runtime folder, for
    /// which the rules give no default.
    std::optional<std::string> runtimeFolder;
};

using Environment = std::function<std::optional<std::string>(const char* name)>;

[[nodiscard]] Places placesIn(const Environment& environment);

/// The places of this process.
[[nodiscard]] Places systemPlaces();

} // namespace brinmoor

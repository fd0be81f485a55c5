#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files by which browsers find this program's helper: one a browser, in a folder of the user's
/// own configuration.
namespace brinmoor {

inline constexpr std::string_view nativeMessagingName = "app.brinmoor.bridge";

struct ManifestRequest {
    std::string configHome;                  ///< where browsers keep their configuration
    std::string home;                        ///< where sandboxed browsers keep theirs
    std::vector<std::string> programFolders; ///< where installed programs are looked for
    std::string hostProgram;                 ///< the helper's absolute path
    std::string extensionIdentifier;         ///< of the extension that may start it
};

enum class ManifestState {
    absent,    ///< the browser is neither installed nor has it been used; nothing was written
    right,     ///< the file was as it must be and has not been touched
    written,   ///< there was no file
    repaired,  ///< the file said something else
    sandboxed, ///< the browser's sandbox lets it start no program of the user's; nothing was
               ///< written
    failed,    ///< the file couldn't be written
};

struct ManifestOutcome {
    std::string browserID; ///< the catalogue's identifier
    ManifestState state = ManifestState::absent;
    std::string path;                   ///< the manifest's; the sandbox's folder where sandboxed
    std::optional<std::string> failure; ///< words for `failed`

    friend bool operator==(const ManifestOutcome&, const ManifestOutcome&) = default;
};

/// Writes what is missing or wrong. One outcome a browser of the catalogue, and one more for each
/// sandboxed variant that is there. No failure keeps the other browsers from theirs.
[[nodiscard]] std::vector<ManifestOutcome>
installNativeMessagingManifests(const ManifestRequest& request);

/// The manifest's text.
[[nodiscard]] std::string nativeMessagingManifest(const ManifestRequest& request);

/// The folders of PATH, absolute ones only.
[[nodiscard]] std::vector<std::string> programFoldersOf(std::string_view path);

} // namespace brinmoor

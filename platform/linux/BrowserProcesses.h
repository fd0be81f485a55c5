#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which processes of this user are browsers of the catalogue, asked of /proc. No Qt: the browser's
/// own helper program uses it too. Any thread.
namespace brinmoor {

struct BrowserProcess {
    std::string browserID; ///< the catalogue's identifier
    std::int32_t processIdentifier = 0;

    friend bool operator==(const BrowserProcess&, const BrowserProcess&) = default;
};

/// The identifier of a browser's executable or window class: "/usr/lib/chromium/chromium",
/// "google-chrome", a Flatpak application id, a Snap path. Absent for anything else. Browsers that
/// can't be connected, Firefox first of all, have identifiers too.
[[nodiscard]] std::optional<std::string> browserIdentifier(std::string_view executableOrClass);

/// The identifier of one running process; absent when it is no browser's main process.
[[nodiscard]] std::optional<std::string> browserIdentifierOfProcess(std::int32_t process);

/// The main process of every browser that this user runs, oldest first: renderers and other
/// children are left out.
[[nodiscard]] std::vector<BrowserProcess> runningBrowserProcesses();

} // namespace brinmoor

#pragma once

#include <string>
#include <vector>

namespace brinmoor {

/// One browser that the user can start.
struct InstalledBrowser {
    std::string id;         ///< the catalogue's identifier, or the desktop's own
    std::string name;       ///< as people call it
    bool sandboxed = false; ///< it may start no other program, so nothing can connect to it

    friend bool operator==(const InstalledBrowser&, const InstalledBrowser&) = default;
};

/// The browsers of this computer and what connects one of them. Main thread.
class BrowserSetup {
public:
    virtual ~BrowserSetup() = default;

    /// Each browser once, known to the catalogue or not; one that is there both ways counts as
    /// not sandboxed. Looked for anew at each call.
    [[nodiscard]] virtual std::vector<InstalledBrowser> installedBrowsers() const = 0;
    /// Tells every browser where the helper program lies. What can't be written shows itself in
    /// that the browser doesn't connect.
    virtual void tellBrowsers() = 0;
    /// The absolute path of the folder that a browser loads as an extension.
    [[nodiscard]] virtual std::string extensionFolder() const = 0;
};

} // namespace brinmoor

#pragma once

#include "platform/BrowserSetup.h"
#include "platform/linux/NativeMessagingManifests.h"

namespace brinmoor {

/// The browsers that PATH, Snap and Flatpak offer.
class DesktopBrowsers final : public BrowserSetup {
public:
    /// `flatpakFolders` are the installations in which Flatpak keeps its applications.
    DesktopBrowsers(ManifestRequest request, std::vector<std::string> flatpakFolders,
                    std::string extensionFolder);

    [[nodiscard]] std::vector<InstalledBrowser> installedBrowsers() const override;
    void tellBrowsers() override;
    [[nodiscard]] std::string extensionFolder() const override { return extensionFolder_; }

private:
    ManifestRequest request_;
    std::vector<std::string> flatpakFolders_;
    std::string extensionFolder_;
};

/// The user's own Flatpak installation and the system's.
[[nodiscard]] std::vector<std::string> flatpakFolders(const std::string& dataHome);

} // namespace brinmoor

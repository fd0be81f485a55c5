#include "platform/linux/DesktopBrowsers.h"

#include "platform/linux/BrowserProcesses.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;

enum class Package { system, sandboxed };

struct KnownBrowser {
    std::string_view program; ///< a command, or an application of Flatpak
    std::string_view name;
};

constexpr auto commands = std::to_array<KnownBrowser>({
    {"google-chrome-stable", "Chrome"},
    {"google-chrome", "Chrome"},
    {"google-chrome-beta", "Chrome Beta"},
    {"brave-browser", "Brave"},
    {"brave-browser-stable", "Brave"},
    {"microsoft-edge-stable", "Edge"},
    {"microsoft-edge", "Edge"},
    {"vivaldi-stable", "Vivaldi"},
    {"vivaldi", "Vivaldi"},
    {"chromium", "Chromium"},
    {"chromium-browser", "Chromium"},
    {"opera", "Opera"},
    {"opera-stable", "Opera"},
    {"firefox", "Firefox"},
    {"firefox-esr", "Firefox"},
    {"zen-browser", "Zen"},
});

constexpr auto flatpaks = std::to_array<KnownBrowser>({
    {"com.google.Chrome", "Chrome"},
    {"com.brave.Browser", "Brave"},
    {"com.microsoft.Edge", "Edge"},
    {"com.vivaldi.Vivaldi", "Vivaldi"},
    {"org.chromium.Chromium", "Chromium"},
    {"com.opera.Opera", "Opera"},
    {"org.mozilla.firefox", "Firefox"},
    {"app.zen_browser.zen", "Zen"},
});

bool isProgram(const std::string& path) {
    std::error_code ignored;
    return ::access(path.c_str(), X_OK) == 0 && !fs::is_directory(path, ignored);
}

/// A Snap's command is a link to the snap tool.
Package packageOf(const std::string& program) {
    std::error_code ignored;
    return fs::canonical(program, ignored).filename() == "snap" ? Package::sandboxed
                                                                : Package::system;
}

void add(std::vector<InstalledBrowser>& found, const KnownBrowser& known, Package package) {
    const auto id = browserIdentifier(known.program);
    if (!id)
        return;
    const bool sandboxed = package == Package::sandboxed;
    const auto there = std::ranges::find(found, *id, &InstalledBrowser::id);
    if (there == found.end())
        found.push_back({*id, std::string(known.name), sandboxed});
    else
        there->sandboxed = there->sandboxed && sandboxed;
}

} // namespace

DesktopBrowsers::DesktopBrowsers(ManifestRequest request, std::vector<std::string> flatpakFolders,
                                 std::string extensionFolder)
    : request_(std::move(request)), flatpakFolders_(std::move(flatpakFolders)),
      extensionFolder_(std::move(extensionFolder)) {}

std::vector<InstalledBrowser> DesktopBrowsers::installedBrowsers() const {
    std::vector<InstalledBrowser> found;
    for (const std::string& folder : request_.programFolders) {
        for (const KnownBrowser& known : commands) {
            const std::string program = folder + "/" + std::string(known.program);
            if (isProgram(program))
                add(found, known, packageOf(program));
        }
    }
    for (const std::string& folder : flatpakFolders_) {
        for (const KnownBrowser& known : flatpaks) {
            std::error_code ignored;
            if (fs::is_directory(folder + "/app/" + std::string(known.program), ignored))
                add(found, known, Package::sandboxed);
        }
    }
    return found;
}

void DesktopBrowsers::tellBrowsers() {
    static_cast<void>(installNativeMessagingManifests(request_));
}

std::vector<std::string> flatpakFolders(const std::string& dataHome) {
    return {dataHome + "/flatpak", "/var/lib/flatpak"};
}

} // namespace brinmoor

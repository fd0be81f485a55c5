#include "platform/linux/NativeMessagingManifests.h"

#include "platform/linux/AtomicFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <filesystem>
#include <unistd.h>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;

struct BrowserFolder {
    std::string_view browserID;
    std::string_view folder; ///< below the configuration folder
    std::array<std::string_view, 2> programs;
};

constexpr std::array<BrowserFolder, 7> browserFolders{{
    {"com.google.Chrome", "google-chrome", {"google-chrome-stable", "google-chrome"}},
    {"com.google.Chrome.beta", "google-chrome-beta", {"google-chrome-beta", {}}},
    {"com.brave.Browser", "BraveSoftware/Brave-Browser", {"brave-browser", "brave-browser-stable"}},
    {"com.microsoft.edgemac", "microsoft-edge", {"microsoft-edge-stable", "microsoft-edge"}},
    {"com.vivaldi.Vivaldi", "vivaldi", {"vivaldi-stable", "vivaldi"}},
    {"org.chromium.Chromium", "chromium", {"chromium", "chromium-browser"}},
    {"com.operasoftware.Opera", "opera", {"opera", "opera-stable"}},
}};

struct SandboxFolder {
    std::string_view browserID;
    std::string_view folder; ///< below the home folder
};

/// Inside their sandboxes neither the helper nor its socket can be reached, wherever a manifest
/// lies: Flatpak shows its programs a file system of their own, and a strict Snap may start nothing
/// from outside.
constexpr std::array<SandboxFolder, 9> sandboxFolders{{
    {"com.google.Chrome", ".var/app/com.google.Chrome"},
    {"com.google.Chrome.beta", ".var/app/com.google.ChromeBeta"},
    {"com.brave.Browser", ".var/app/com.brave.Browser"},
    {"com.microsoft.edgemac", ".var/app/com.microsoft.Edge"},
    {"com.vivaldi.Vivaldi", ".var/app/com.vivaldi.Vivaldi"},
    {"org.chromium.Chromium", ".var/app/org.chromium.Chromium"},
    {"com.operasoftware.Opera", ".var/app/com.opera.Opera"},
    {"org.chromium.Chromium", "snap/chromium"},
    {"com.operasoftware.Opera", "snap/opera"},
}};

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

bool isFolder(const std::string& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

/// A Snap's command is a link to the snap tool: the browser behind it is the sandboxed one.
bool isInstalled(const std::string& program) {
    if (::access(program.c_str(), X_OK) != 0 || isFolder(program))
        return false;
    std::error_code ignored;
    return fs::canonical(program, ignored).filename() != "snap";
}

bool isThere(const BrowserFolder& browser, const ManifestRequest& request) {
    if (isFolder(request.configHome + "/" + std::string(browser.folder)))
        return true;
    for (const auto& folder : request.programFolders) {
        for (const auto program : browser.programs) {
            if (!program.empty() && isInstalled(folder + "/" + std::string(program)))
                return true;
        }
    }
    return false;
}

ManifestOutcome failed(ManifestOutcome outcome, const std::error_code& failure) {
    outcome.state = ManifestState::failed;
    outcome.failure = wordsFor(failure);
    return outcome;
}

ManifestOutcome install(const BrowserFolder& browser, const ManifestRequest& request,
                        const std::string& manifest) {
    ManifestOutcome outcome;
    outcome.browserID = browser.browserID;
    outcome.path = request.configHome + "/" + std::string(browser.folder) +
                   "/NativeMessagingHosts/" + std::string(nativeMessagingName) + ".json";
    if (!isThere(browser, request))
        return outcome;
    constexpr std::size_t largestManifest = 65536;
    const auto present = readFile(outcome.path, largestManifest);
    if (present.ok() && *present == manifest) {
        outcome.state = ManifestState::right;
        return outcome;
    }
    if (const auto replaced = replaceFile(outcome.path, manifest); !replaced)
        return failed(std::move(outcome), replaced.error());
    const bool wasAbsent = !present.ok() && present.error() == std::errc::no_such_file_or_directory;
    outcome.state = wasAbsent ? ManifestState::written : ManifestState::repaired;
    return outcome;
}

/// A browser starts the helper by this path, whatever its own working folder.
std::optional<std::error_code> refusalOf(const ManifestRequest& request) {
    if (!request.hostProgram.starts_with('/') || request.extensionIdentifier.empty())
        return std::make_error_code(std::errc::invalid_argument);
    return std::nullopt;
}

} // namespace

std::string nativeMessagingManifest(const ManifestRequest& request) {
    const auto origin = "chrome-extension://" + request.extensionIdentifier + "/";
    const QJsonObject manifest{
        {QStringLiteral("name"), text(nativeMessagingName)},
        {QStringLiteral("description"), QStringLiteral("Brinmoor")},
        {QStringLiteral("path"), text(request.hostProgram)},
        {QStringLiteral("type"), QStringLiteral("stdio")},
        {QStringLiteral("allowed_origins"), QJsonArray{text(origin)}},
    };
    return QJsonDocument(manifest).toJson(QJsonDocument::Indented).toStdString();
}

std::vector<ManifestOutcome> installNativeMessagingManifests(const ManifestRequest& request) {
    std::vector<ManifestOutcome> outcomes;
    const auto refusal = refusalOf(request);
    const auto manifest = nativeMessagingManifest(request);
    for (const auto& browser : browserFolders) {
        if (refusal)
            outcomes.push_back(
                failed({.browserID = std::string(browser.browserID), .path = {}, .failure = {}},
                       *refusal));
        else
            outcomes.push_back(install(browser, request, manifest));
    }
    for (const auto& sandbox : sandboxFolders) {
        auto folder = request.home + "/" + std::string(sandbox.folder);
        if (isFolder(folder))
            outcomes.push_back({.browserID = std::string(sandbox.browserID),
                                .state = ManifestState::sandboxed,
                                .path = std::move(folder),
                                .failure = {}});
    }
    return outcomes;
}

std::vector<std::string> programFoldersOf(std::string_view path) {
    std::vector<std::string> folders;
    while (!path.empty()) {
        const auto part = path.substr(0, path.find(':'));
        if (part.starts_with('/'))
            folders.emplace_back(part);
        path.remove_prefix(std::min(path.size(), part.size() + 1));
    }
    return folders;
}

} // namespace brinmoor

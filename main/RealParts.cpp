#include "main/RealParts.h"

#include "bridge/ExtensionIdentity.h"
#include "core/capture/CaptureAction.h"
#include "core/text/Wording.h"
#include "platform/HotKeys.h"
#include "platform/Workspace.h"
#include "platform/linux/Desktop.h"
#include "platform/linux/NativeMessagingManifests.h"

#include <QtGlobal>

#include <map>

namespace brinmoor {
namespace {

std::map<std::uint32_t, std::string> hotKeyDescriptions() {
    std::map<std::uint32_t, std::string> descriptions;
    for (const CaptureAction action : allCaptureActions)
        descriptions.emplace(hotKeyId(action), text::worded(messageName(action)));
    return descriptions;
}

} // namespace

RealParts::RealParts(const Installation& installation, QQmlEngine& engine)
    : places_(systemPlaces()), preferences_(places_.preferencesFile),
      hotKeys_(makeHotKeys(hotKeyDescriptions())), workspace_(makeWorkspace()), files_(engine),
      scripts_(installation.automationTool) {}

RealParts::~RealParts() = default;

AppParts RealParts::parts() {
    return {.clock = clock_,
            .files = files_,
            .hotKeys = *hotKeys_,
            .opener = opener_,
            .pasteboard = pasteboard_,
            .preferences = preferences_,
            .scripts = scripts_,
            .workspace = *workspace_,
            .libraryPath = places_.libraryFile};
}

std::vector<ManifestOutcome> connectBrowsers(const Installation& installation) {
    const Places places = systemPlaces();
    return installNativeMessagingManifests(
        {.configHome = places.configHome,
         .home = places.home,
         .programFolders = programFoldersOf(qgetenv("PATH").toStdString()),
         .hostProgram = installation.browserHost.toStdString(),
         .extensionIdentifier = std::string(bridge::extensionIdentifier)});
}

} // namespace brinmoor

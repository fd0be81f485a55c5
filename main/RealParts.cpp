#include "main/RealParts.h"

#include "bridge/ExtensionIdentity.h"
#include "bridge/focus/HostFocusReports.h"
#include "core/capture/CaptureAction.h"
#include "core/text/Wording.h"
#include "icons/DecodedPictures.h"
#include "icons/SiteIconLoader.h"
#include "platform/HotKeys.h"
#include "platform/Workspace.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/Desktop.h"
#include "platform/linux/NativeMessagingManifests.h"

#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <cstdlib>
#include <map>

namespace brinmoor {
namespace {

std::map<std::uint32_t, std::string> hotKeyDescriptions() {
    std::map<std::uint32_t, std::string> descriptions;
    for (const CaptureAction action : allCaptureActions)
        descriptions.emplace(hotKeyId(action), text::worded(messageName(action)));
    return descriptions;
}

/// The certificate of a service on this computer, when the build names one.
std::string trustedCertificate() {
    const QString place = QStringLiteral(BRINMOOR_SERVICE_CERTIFICATE);
    if (place.isEmpty())
        return {};
    QFile file(place);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

ManifestRequest manifestRequest(const Installation& installation, const Places& places) {
    return {.configHome = places.configHome,
            .home = places.home,
            .programFolders = programFoldersOf(qgetenv("PATH").toStdString()),
            .hostProgram = installation.browserHost.toStdString(),
            .extensionIdentifier = std::string(bridge::extensionIdentifier)};
}

AppBuild thisBuild() {
    AppBuild build{.identifier = ownApplicationIdentifier,
                   .updatesEnabled = BRINMOOR_UPDATES_ENABLED != 0,
                   .version = BRINMOOR_VERSION,
                   .number = {}};
    if (const std::string number = BRINMOOR_BUILD_NUMBER; !number.empty())
        build.number = number;
    return build;
}

} // namespace

/// What loads the icons of sites. Pictures are from strangers: they are read in a process of their
/// own, and asked for without anything that the account's session knows.
struct RealParts::Icons {
    Icons(Clock& clock, const QString& decoder, const std::string& folder)
        : pictures(decoder), loader(http, clock, pictures, folder) {}

    NetworkHttp http;
    DecodedPictures pictures;
    SiteIconLoader loader;
};

RealParts::RealParts(const Installation& installation, QQmlEngine& engine)
    : places_(systemPlaces()),
      browsers_(manifestRequest(installation, places_), flatpakFolders(places_.dataHome),
                installation.extensionFolder.toStdString()),
      preferences_(places_.preferencesFile), hotKeys_(makeHotKeys(hotKeyDescriptions())),
      focus_(isWayland() ? std::make_unique<HostFocusReports>(std::getenv("XDG_RUNTIME_DIR"))
                         : nullptr),
      workspace_(makeWorkspace(focus_.get())), files_(engine), certificate_(trustedCertificate()),
      http_(certificate_), scripts_(installation.automationTool),
      iconDecoder_(installation.iconDecoder) {}

RealParts::~RealParts() = default;

SiteIconSource RealParts::siteIcons() {
    if (!icons_)
        icons_ = std::make_unique<Icons>(clock_, iconDecoder_, places_.iconsFolder);
    return [this](std::string page, std::optional<std::string> hint) {
        return icons_->loader.image(std::move(page), std::move(hint));
    };
}

AppParts RealParts::parts() {
    return {.browsers = browsers_,
            .clock = clock_,
            .files = files_,
            .hotKeys = *hotKeys_,
            .opener = opener_,
            .pasteboard = pasteboard_,
            .preferences = preferences_,
            .scripts = scripts_,
            .workspace = *workspace_,
            .libraryPath = places_.libraryFile,
            .account = {.clock = clock_,
                        .http = http_,
                        .random = random_,
                        .secrets = secrets_,
                        .folder = QFileInfo(QString::fromStdString(places_.libraryFile))
                                      .absolutePath()
                                      .toStdString(),
                        .serviceURL = BRINMOOR_SERVICE_URL,
                        .ownerAddress = BRINMOOR_OWNER_ADDRESS},
            .makeUsageSession =
                [certificate = certificate_] { return std::make_unique<NetworkHttp>(certificate); },
            .build = thisBuild()};
}

} // namespace brinmoor

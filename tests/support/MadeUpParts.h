#pragma once

#include "app/AppModel.h"
#include "platform/memory/CountingRandom.h"
#include "platform/memory/ManualClock.h"
#include "platform/memory/MemoryBrowserSetup.h"
#include "platform/memory/MemoryFileDialogs.h"
#include "platform/memory/MemoryHotKeys.h"
#include "platform/memory/MemoryHttp.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryPreferences.h"
#include "platform/memory/MemorySecureStore.h"
#include "platform/memory/MemorySystemOpener.h"
#include "platform/memory/MemoryWorkspace.h"
#include "tests/support/CannedScripts.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace brinmoor::testing {

/// A network session over calls that outlive it.
class SharedHttp final : public Http {
public:
    explicit SharedHttp(Http& http) : http_(http) {}
    [[nodiscard]] Subscription send(HttpRequest request, HttpListener listener) override {
        return http_.send(std::move(request), std::move(listener));
    }

private:
    Http& http_;
};

/// A desktop that the test makes up; only the library is a real file.
struct MadeUpParts {
    MemoryBrowserSetup browsers;
    ManualClock clock;
    MemoryFileDialogs files;
    MemoryHotKeys hotKeys;
    MemoryHttp http;
    MemoryHttp usageHttp; ///< what the usage counts send goes here
    MemorySystemOpener opener;
    MemoryPasteboard pasteboard;
    MemoryPreferences preferences;
    CountingRandom random;
    CannedScripts scripts;
    MemorySecureStore secrets;
    MemoryWorkspace workspace;

    [[nodiscard]] AppParts partsFor(const std::string& libraryPath) {
        return partsFor(libraryPath, clock);
    }
    [[nodiscard]] AppParts partsFor(const std::string& libraryPath, Clock& time) {
        return {.browsers = browsers,
                .clock = time,
                .files = files,
                .hotKeys = hotKeys,
                .opener = opener,
                .pasteboard = pasteboard,
                .preferences = preferences,
                .scripts = scripts,
                .workspace = workspace,
                .libraryPath = libraryPath,
                .account = {.clock = time,
                            .http = http,
                            .random = random,
                            .secrets = secrets,
                            .folder = std::filesystem::path(libraryPath).parent_path(),
                            .serviceURL = "https://service.example/",
                            .ownerAddress = "owner@service.example"},
                .makeUsageSession = [this] { return std::make_unique<SharedHttp>(usageHttp); }};
    }
};

} // namespace brinmoor::testing

#include "platform/linux/DesktopBrowsers.h"

#include "tests/platform/linux/TestFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sys/stat.h>

using namespace brinmoor;
using namespace brinmoor::testing;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

class DesktopBrowsersTest : public ::testing::Test {
protected:
    void installProgram(const std::string& name) const {
        putFile(home.path("bin/" + name), "#!/bin/sh\n");
        ::chmod(home.path("bin/" + name).c_str(), 0755);
    }
    void installSnap(const std::string& name) const {
        installProgram("snap");
        std::filesystem::create_directories(home.path("snap/bin"));
        std::filesystem::create_symlink(home.path("bin/snap"), home.path("snap/bin/" + name));
    }
    void installFlatpak(const std::string& application) const {
        std::filesystem::create_directories(home.path("flatpak/app/" + application));
    }
    [[nodiscard]] std::vector<InstalledBrowser> installed() const {
        return browsers.installedBrowsers();
    }

    TestFolder home;
    DesktopBrowsers browsers{{home.path(".config"),
                              home.path(),
                              {home.path("bin"), home.path("snap/bin")},
                              "/usr/lib/brinmoor/brinmoor-browser-host",
                              "abcdefghijklmnop"},
                             {home.path("flatpak")},
                             "/usr/share/brinmoor/extension"};
};

} // namespace

TEST_F(DesktopBrowsersTest, aComputerWithoutBrowsersHasNone) {
    installProgram("links");
    EXPECT_THAT(installed(), IsEmpty());
}

TEST_F(DesktopBrowsersTest, aBrowserWithTwoCommandsIsOneBrowser) {
    installProgram("google-chrome");
    installProgram("google-chrome-stable");
    installProgram("firefox-esr");
    EXPECT_THAT(installed(),
                UnorderedElementsAre(InstalledBrowser{"com.google.Chrome", "Chrome"},
                                     InstalledBrowser{"org.mozilla.firefox", "Firefox"}));
}

TEST_F(DesktopBrowsersTest, whatSnapAndFlatpakInstalledIsSandboxed) {
    installSnap("chromium");
    installFlatpak("com.brave.Browser");
    EXPECT_THAT(installed(),
                UnorderedElementsAre(InstalledBrowser{"org.chromium.Chromium", "Chromium", true},
                                     InstalledBrowser{"com.brave.Browser", "Brave", true}));
}

TEST_F(DesktopBrowsersTest, theSystemsOwnPackageBesideASandboxedOneCounts) {
    installSnap("chromium");
    installProgram("chromium");
    EXPECT_THAT(installed(),
                UnorderedElementsAre(InstalledBrowser{"org.chromium.Chromium", "Chromium"}));
}

TEST_F(DesktopBrowsersTest, aBrowserThatCameLaterIsToldToo) {
    const auto manifest =
        home.path(".config/chromium/NativeMessagingHosts/app.brinmoor.bridge.json");
    browsers.tellBrowsers();
    EXPECT_FALSE(std::filesystem::exists(manifest));
    installProgram("chromium");
    browsers.tellBrowsers();
    EXPECT_TRUE(std::filesystem::exists(manifest));
}

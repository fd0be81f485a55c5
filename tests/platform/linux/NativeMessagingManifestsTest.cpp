#include "platform/linux/NativeMessagingManifests.h"

#include "tests/platform/linux/TestFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <sys/stat.h>

using namespace brinmoor;
using namespace brinmoor::testing;
using ::testing::ElementsAre;

namespace {

class NativeMessagingManifestsTest : public ::testing::Test {
protected:
    [[nodiscard]] ManifestOutcome outcomeOf(const std::string& browser) const {
        for (const auto& outcome : installNativeMessagingManifests(request)) {
            if (outcome.browserID == browser)
                return outcome;
        }
        return {};
    }

    void installProgram(const std::string& name) const {
        putFile(home.path("bin/" + name), "#!/bin/sh\n");
        ::chmod(home.path("bin/" + name).c_str(), 0755);
    }

    void useBrowser(const std::string& folder) const {
        std::filesystem::create_directories(home.path(".config/" + folder));
    }

    TestFolder home;
    ManifestRequest request{home.path(".config"),
                            home.path(),
                            {home.path("bin")},
                            "/usr/lib/brinmoor/brinmoor-browser-host",
                            "abcdefghijklmnop"};
    std::string chromiumManifest =
        home.path(".config/chromium/NativeMessagingHosts/app.brinmoor.bridge.json");
};

} // namespace

TEST_F(NativeMessagingManifestsTest, everyBrowserThatHasBeenUsedFindsItsManifest) {
    const std::map<std::string, std::string> folders{
        {"com.google.Chrome", "google-chrome"},
        {"com.google.Chrome.beta", "google-chrome-beta"},
        {"com.brave.Browser", "BraveSoftware/Brave-Browser"},
        {"com.microsoft.edgemac", "microsoft-edge"},
        {"com.vivaldi.Vivaldi", "vivaldi"},
        {"org.chromium.Chromium", "chromium"},
        {"com.operasoftware.Opera", "opera"}};
    for (const auto& [browser, folder] : folders)
        useBrowser(folder);
    const auto outcomes = installNativeMessagingManifests(request);
    EXPECT_EQ(outcomes.size(), folders.size());
    for (const auto& outcome : outcomes) {
        EXPECT_EQ(outcome.state, ManifestState::written) << outcome.browserID;
        EXPECT_EQ(outcome.path, home.path(".config/" + folders.at(outcome.browserID) +
                                          "/NativeMessagingHosts/app.brinmoor.bridge.json"));
        EXPECT_EQ(contentsOf(outcome.path), nativeMessagingManifest(request));
    }
}

TEST_F(NativeMessagingManifestsTest, theManifestNamesTheHelperAndLetsOnlyTheExtensionIn) {
    const auto manifest =
        QJsonDocument::fromJson(QByteArray::fromStdString(nativeMessagingManifest(request)))
            .object();
    EXPECT_EQ(manifest[u"name"].toString(), u"app.brinmoor.bridge");
    EXPECT_EQ(manifest[u"type"].toString(), u"stdio");
    EXPECT_EQ(manifest[u"path"].toString(), u"/usr/lib/brinmoor/brinmoor-browser-host");
    EXPECT_EQ(manifest[u"allowed_origins"].toArray(),
              QJsonArray{u"chrome-extension://abcdefghijklmnop/"_qs});
}

TEST_F(NativeMessagingManifestsTest, anInstalledBrowserThatWasNeverUsedIsServedToo) {
    installProgram("chromium");
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::written);
    EXPECT_TRUE(std::filesystem::exists(chromiumManifest));
}

TEST_F(NativeMessagingManifestsTest, forBrowsersThatAreNotThereNothingIsWritten) {
    for (const auto& outcome : installNativeMessagingManifests(request))
        EXPECT_EQ(outcome.state, ManifestState::absent);
    EXPECT_FALSE(std::filesystem::exists(home.path(".config")));
}

TEST_F(NativeMessagingManifestsTest, aRightManifestIsNotTouched) {
    useBrowser("chromium");
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::written);
    const auto long_ago = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    std::filesystem::last_write_time(chromiumManifest, long_ago);
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::right);
    EXPECT_EQ(std::filesystem::last_write_time(chromiumManifest), long_ago);
}

TEST_F(NativeMessagingManifestsTest, aMovedProgramIsRepaired) {
    useBrowser("chromium");
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::written);
    request.hostProgram = "/opt/brinmoor/brinmoor-browser-host";
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::repaired);
    EXPECT_EQ(contentsOf(chromiumManifest), nativeMessagingManifest(request));
    putFile(chromiumManifest, "{");
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::repaired);
    EXPECT_EQ(contentsOf(chromiumManifest), nativeMessagingManifest(request));
}

TEST_F(NativeMessagingManifestsTest, oneFailureKeepsNoOtherBrowserFromItsManifest) {
    useBrowser("google-chrome");
    useBrowser("chromium");
    putFile(home.path(".config/google-chrome/NativeMessagingHosts"), "a file in the way");
    const auto chrome = outcomeOf("com.google.Chrome");
    EXPECT_EQ(chrome.state, ManifestState::failed);
    EXPECT_TRUE(chrome.failure.has_value());
    EXPECT_TRUE(std::filesystem::exists(chromiumManifest));
}

TEST_F(NativeMessagingManifestsTest, sandboxedBrowsersAreToldApart) {
    std::filesystem::create_directories(home.path(".var/app/org.chromium.Chromium"));
    std::filesystem::create_directories(home.path("snap/opera"));
    std::vector<std::string> sandboxed;
    for (const auto& outcome : installNativeMessagingManifests(request)) {
        if (outcome.state == ManifestState::sandboxed)
            sandboxed.push_back(outcome.browserID);
    }
    EXPECT_THAT(sandboxed, ElementsAre("org.chromium.Chromium", "com.operasoftware.Opera"));
    EXPECT_EQ(filesIn(home.path(".var/app/org.chromium.Chromium")), 0U);
}

TEST_F(NativeMessagingManifestsTest, theCommandOfASnapIsNoInstalledBrowser) {
    installProgram("snap");
    std::filesystem::create_symlink(home.path("bin/snap"), home.path("bin/chromium"));
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::absent);
}

TEST_F(NativeMessagingManifestsTest, aHelperWithoutAbsolutePathIsRefused) {
    useBrowser("chromium");
    request.hostProgram = "brinmoor-browser-host";
    EXPECT_EQ(outcomeOf("org.chromium.Chromium").state, ManifestState::failed);
    EXPECT_FALSE(std::filesystem::exists(chromiumManifest));
}

TEST(ProgramFolders, onlyAbsoluteFoldersOfThePathCount) {
    EXPECT_THAT(programFoldersOf("/usr/bin::bin:/opt/x/bin"),
                ElementsAre("/usr/bin", "/opt/x/bin"));
    EXPECT_TRUE(programFoldersOf("").empty());
}

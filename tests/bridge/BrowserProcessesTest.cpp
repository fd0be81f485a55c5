#include "platform/linux/BrowserProcesses.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace brinmoor {
namespace {

using testing::ChildProcess;
using ::testing::Contains;
using ::testing::Not;
using testing::ScratchFolder;

struct NameCase {
    const char* name;
    const char* browserID;
};

class KnownBrowser : public ::testing::TestWithParam<NameCase> {};

TEST_P(KnownBrowser, hasItsIdentifier) {
    EXPECT_EQ(browserIdentifier(GetParam().name), GetParam().browserID);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KnownBrowser,
    ::testing::Values(NameCase{"/usr/lib/chromium/chromium", "org.chromium.Chromium"},
                      NameCase{"Chromium", "org.chromium.Chromium"},
                      NameCase{"/snap/chromium/2890/usr/lib/chromium-browser/chrome",
                               "org.chromium.Chromium"},
                      NameCase{"/app/chromium/chrome", "org.chromium.Chromium"},
                      NameCase{"org.chromium.Chromium", "org.chromium.Chromium"},
                      NameCase{"/opt/google/chrome/chrome", "com.google.Chrome"},
                      NameCase{"Google-chrome", "com.google.Chrome"},
                      NameCase{"/app/extra/chrome", "com.google.Chrome"},
                      NameCase{"/opt/google/chrome-beta/chrome", "com.google.Chrome.beta"},
                      NameCase{"Google-chrome-beta", "com.google.Chrome.beta"},
                      NameCase{"/opt/brave.com/brave/brave", "com.brave.Browser"},
                      NameCase{"Brave-browser", "com.brave.Browser"},
                      NameCase{"/opt/microsoft/msedge/msedge", "com.microsoft.edgemac"},
                      NameCase{"Microsoft-edge", "com.microsoft.edgemac"},
                      NameCase{"/opt/vivaldi/vivaldi-bin", "com.vivaldi.Vivaldi"},
                      NameCase{"Vivaldi-stable", "com.vivaldi.Vivaldi"},
                      NameCase{"/usr/lib/x86_64-linux-gnu/opera/opera", "com.operasoftware.Opera"},
                      NameCase{"/usr/lib/firefox-esr/firefox-esr", "org.mozilla.firefox"},
                      NameCase{"/snap/firefox/4793/usr/lib/firefox/firefox", "org.mozilla.firefox"},
                      NameCase{"firefox-devedition", "org.mozilla.firefoxdeveloperedition"},
                      NameCase{"zen", "app.zen-browser.zen"}));

TEST(OtherPrograms, haveNoIdentifier) {
    for (const char* name :
         {"", "/", "/usr/bin/bash", "/usr/lib/chromium/chrome_crashpad_handler", "chromedriver",
          "/usr/lib/chromium/", "firefoxy", "/opt/chromium/readme"})
        EXPECT_EQ(browserIdentifier(name), std::nullopt) << name;
}

/// The kernel shows a new process's arguments a moment after its executable.
void waitForArguments(pid_t process) {
    const std::string path = "/proc/" + std::to_string(process) + "/cmdline";
    ASSERT_TRUE(testing::eventually([&] { return std::ifstream(path).peek() != EOF; }));
}

/// A real process whose executable has the given name and which waits for its end.
class StandIn {
public:
    StandIn(const std::string& name, const std::vector<std::string>& arguments = {})
        : program_(folder_.path(name)) {
        std::filesystem::copy_file("/bin/sleep", program_);
        std::vector<std::string> line{program_, "600"};
        line.insert(line.end(), arguments.begin(), arguments.end());
        child_.emplace(testing::ChildOptions{line, {}, true});
        waitForArguments(child_->process());
    }

    [[nodiscard]] pid_t process() const { return child_->process(); }
    void replaceExecutable() const { std::filesystem::remove(program_); }

private:
    ScratchFolder folder_;
    std::string program_;
    std::optional<ChildProcess> child_;
};

TEST(RunningBrowser, isKnownByItsExecutable) {
    const StandIn firefox("firefox");
    EXPECT_EQ(browserIdentifierOfProcess(firefox.process()), "org.mozilla.firefox");
    EXPECT_THAT(runningBrowserProcesses(),
                Contains(BrowserProcess{"org.mozilla.firefox", firefox.process()}));
}

TEST(RunningBrowser, staysKnownWhenAnUpdateReplacesItsExecutable) {
    const StandIn firefox("firefox");
    firefox.replaceExecutable();
    EXPECT_EQ(browserIdentifierOfProcess(firefox.process()), "org.mozilla.firefox");
}

TEST(RunningBrowser, isNotOneOfItsChildren) {
    // `sleep` refuses such an argument; a shell takes it.
    const ScratchFolder folder;
    const std::string program = folder.path("chromium");
    std::filesystem::copy_file("/bin/sh", program);
    const ChildProcess renderer(
        testing::ChildOptions{{program, "-c", "read -r wait", "--type=renderer"}, {}, true});
    waitForArguments(renderer.process());
    EXPECT_EQ(browserIdentifierOfProcess(renderer.process()), std::nullopt);
    const ChildProcess browser(
        testing::ChildOptions{{program, "-c", "read -r wait", "page"}, {}, true});
    waitForArguments(browser.process());
    EXPECT_EQ(browserIdentifierOfProcess(browser.process()), "org.chromium.Chromium");
}

TEST(RunningBrowsers, comeOldestFirst) {
    const StandIn older("vivaldi-bin");
    const StandIn newer("vivaldi-bin");
    std::vector<pid_t> vivaldi;
    for (const auto& each : runningBrowserProcesses())
        if (each.browserID == "com.vivaldi.Vivaldi")
            vivaldi.push_back(each.processIdentifier);
    EXPECT_EQ(vivaldi, (std::vector<pid_t>{older.process(), newer.process()}));
}

TEST(RunningBrowsers, leaveOutOtherProcesses) {
    EXPECT_EQ(browserIdentifierOfProcess(::getpid()), std::nullopt);
    EXPECT_EQ(browserIdentifierOfProcess(0x3ffffff0), std::nullopt);
    EXPECT_EQ(browserIdentifierOfProcess(-1), std::nullopt);
}

} // namespace
} // namespace brinmoor

#include "platform/linux/X11Workspace.h"

#include "platform/linux/Desktop.h"
#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/TestProgram.h"

#include <QWindow>

#include <gmock/gmock.h>

#include <algorithm>
#include <unistd.h>

using namespace brinmoor;
using namespace brinmoor::testing;

namespace {

class X11WorkspaceTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(workspace, nullptr) << "these tests need an X server";
        putFile(entries.path("chromium.desktop"),
                "[Desktop Entry]\nName=Chromium Web Browser\nName[de]=Chromium-Webbrowser\n"
                "[Desktop Action new]\nName=New Window\n");
        putFile(entries.path("org.example.Fox.desktop"),
                "[Desktop Entry]\nName = Fox ESR\nStartupWMClass=firefox-esr\n");
    }

    [[nodiscard]] std::int32_t frontProcess() const {
        const auto front = workspace->frontmostApplication();
        return front ? front->processIdentifier : 0;
    }

    [[nodiscard]] bool comesToFront(const TestProgram& program) {
        return eventually([&] { return frontProcess() == program.process(); });
    }

    [[nodiscard]] std::optional<RunningApplication> running(std::int32_t process) const {
        const auto all = workspace->runningApplications();
        const auto found = std::find_if(all.begin(), all.end(), [&](const auto& application) {
            return application.processIdentifier == process;
        });
        return found == all.end() ? std::nullopt : std::optional(*found);
    }

    [[nodiscard]] std::vector<std::int32_t> visible() const {
        std::vector<std::int32_t> processes;
        const auto windows = workspace->visibleWindows().value();
        for (const auto& window : windows)
            processes.push_back(window.ownerProcess.value_or(0));
        return processes;
    }

    TestFolder entries;
    std::unique_ptr<X11Workspace> workspace = X11Workspace::open(DesktopEntries({entries.path()}));
};

} // namespace

TEST_F(X11WorkspaceTest, theFrontApplicationIsTheBrowserWhoseWindowHasTheFocus) {
    const TestProgram chromium("chromium", {u"instance=chromium"_qs, u"class=Chromium"_qs});
    ASSERT_TRUE(comesToFront(chromium));
    const auto front = workspace->frontmostApplication();
    EXPECT_EQ(front->bundleIdentifier, "org.chromium.Chromium");
    EXPECT_EQ(front->localizedName, "Chromium Web Browser");
    EXPECT_FALSE(front->isTerminated);
}

TEST_F(X11WorkspaceTest, aBrowserIsNamedByItsEntryOrElseByItsWindowsClass) {
    TestProgram esr("firefox-esr", {u"instance=Navigator"_qs, u"class=firefox-esr"_qs});
    ASSERT_TRUE(comesToFront(esr));
    EXPECT_EQ(workspace->frontmostApplication()->localizedName, "Fox ESR");
    const TestProgram firefox("firefox", {u"instance=Navigator"_qs, u"class=firefox"_qs});
    ASSERT_TRUE(comesToFront(firefox));
    const auto front = workspace->frontmostApplication();
    EXPECT_EQ(front->bundleIdentifier, "org.mozilla.firefox");
    EXPECT_EQ(front->localizedName, "Firefox");
}

TEST_F(X11WorkspaceTest, anotherProgramIsKnownByItsWindow) {
    const TestProgram editor("editor", {u"instance=org.example.Editor"_qs, u"class=Editor"_qs});
    ASSERT_TRUE(comesToFront(editor));
    const auto front = workspace->frontmostApplication();
    EXPECT_EQ(front->bundleIdentifier, "org.example.Editor");
    EXPECT_EQ(front->localizedName, "Editor");
    EXPECT_TRUE(eventually([&] { return running(editor.process()) == front; }));
}

TEST_F(X11WorkspaceTest, aProgramsWindowOfABrowsersProcessIsTheBrowsers) {
    const TestProgram chromium("chromium", {u"instance=crx_abcdef"_qs, u"class=crx_abcdef"_qs});
    ASSERT_TRUE(comesToFront(chromium));
    EXPECT_EQ(workspace->frontmostApplication()->bundleIdentifier, "org.chromium.Chromium");
}

TEST_F(X11WorkspaceTest, aSandboxedWindowIsTheRunningBrowsers) {
    const TestProgram browser("vivaldi-bin", {});
    const TestProgram window("elsewhere", {u"class=Vivaldi-stable"_qs, u"pid=1"_qs});
    ASSERT_TRUE(comesToFront(browser));
    EXPECT_EQ(workspace->frontmostApplication()->bundleIdentifier, "com.vivaldi.Vivaldi");
    EXPECT_THAT(visible(), ::testing::Contains(browser.process()));
}

TEST_F(X11WorkspaceTest, aWindowThatSaysNoProcessHasNoOwner) {
    const TestProgram program("old", {u"instance=old"_qs, u"class=Old"_qs, u"pid=0"_qs});
    ASSERT_TRUE(eventually([&] {
        const auto front = workspace->frontmostApplication();
        return front && front->bundleIdentifier == "old";
    }));
    EXPECT_EQ(workspace->visibleWindows()->front().ownerProcess, std::nullopt);
    EXPECT_EQ(workspace->frontmostApplication()->processIdentifier, 0);
}

TEST_F(X11WorkspaceTest, browsersWithoutWindowsRunToo) {
    TestProgram chromium("chromium", {});
    const auto found = running(chromium.process());
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->bundleIdentifier, "org.chromium.Chromium");
    EXPECT_FALSE(workspace->activate(*found)) << "it has no window to bring forward";
    const auto process = chromium.process();
    chromium.end();
    EXPECT_EQ(running(process), std::nullopt);
}

TEST_F(X11WorkspaceTest, anApplicationIsListedOnceHoweverManyWindowsItHas) {
    const TestProgram firefox("firefox", {u"class=firefox"_qs, u"windows=3"_qs});
    ASSERT_TRUE(eventually([&] {
        const auto processes = visible();
        return std::count(processes.begin(), processes.end(), firefox.process()) == 3;
    }));
    const auto all = workspace->runningApplications();
    EXPECT_EQ(std::count_if(all.begin(), all.end(),
                            [&](const auto& application) {
                                return application.processIdentifier == firefox.process();
                            }),
              1);
}

TEST_F(X11WorkspaceTest, windowsAreListedFrontToBack) {
    const TestProgram below("chromium", {u"class=Chromium"_qs});
    ASSERT_TRUE(comesToFront(below));
    const TestProgram above("firefox", {u"class=firefox"_qs});
    ASSERT_TRUE(comesToFront(above));
    EXPECT_THAT(visible(), ::testing::ElementsAre(above.process(), below.process()));
    ASSERT_TRUE(workspace->activate(*running(below.process())));
    ASSERT_TRUE(comesToFront(below));
    EXPECT_THAT(visible(), ::testing::ElementsAre(below.process(), above.process()));
}

TEST_F(X11WorkspaceTest, onlyOrdinaryWindowsAndDialogsAreOnLayerNought) {
    const auto layerOf = [&](const QString& type) -> std::optional<int> {
        const TestProgram program("chromium", {u"class=Chromium"_qs, u"type="_qs + type});
        std::optional<int> layer;
        EXPECT_TRUE(eventually([&] {
            const auto windows = workspace->visibleWindows().value();
            for (const auto& window : windows) {
                if (window.ownerProcess == program.process())
                    layer = window.layer;
            }
            return layer.has_value();
        })) << type.toStdString();
        return layer;
    };
    EXPECT_EQ(layerOf(u"_NET_WM_WINDOW_TYPE_NORMAL"_qs), 0);
    EXPECT_EQ(layerOf(u"_NET_WM_WINDOW_TYPE_DIALOG"_qs), 0);
    EXPECT_NE(layerOf(u"_NET_WM_WINDOW_TYPE_DOCK"_qs), 0);
    EXPECT_NE(layerOf(u"_NET_WM_WINDOW_TYPE_UTILITY"_qs), 0);
    EXPECT_NE(layerOf(u"_NET_WM_WINDOW_TYPE_DESKTOP"_qs), 0);
}

TEST_F(X11WorkspaceTest, minimisedWindowsAndThoseOfOtherDesktopsAreNotOnScreen) {
    QWindow window;
    window.setGeometry(50, 50, 200, 100);
    window.show();
    const auto own = static_cast<std::int32_t>(::getpid());
    const auto onScreen = [&] {
        const auto processes = visible();
        return std::count(processes.begin(), processes.end(), own) > 0;
    };
    ASSERT_TRUE(eventually(onScreen));
    window.showMinimized();
    EXPECT_TRUE(eventually([&] { return !onScreen(); }));
    ASSERT_TRUE(workspace->activate(*running(own)));
    ASSERT_TRUE(eventually(onScreen)) << "activation reaches a minimised window";
    const auto connection = XcbConnection::open();
    tellWindowManager(connection->get(), connection->root(),
                      static_cast<xcb_window_t>(window.winId()), connection->atoms().netWmDesktop,
                      {1, 2, 0, 0, 0});
    EXPECT_TRUE(eventually([&] { return !onScreen(); }));
    ASSERT_TRUE(workspace->activate(*running(own)));
    EXPECT_TRUE(eventually(onScreen)) << "activation reaches another desktop";
    tellWindowManager(connection->get(), connection->root(), connection->root(),
                      connection->atoms().netCurrentDesktop, {0, 0, 0, 0, 0});
    EXPECT_TRUE(eventually([&] { return !onScreen(); })) << "the user goes back";
}

TEST_F(X11WorkspaceTest, activationBringsAnotherApplicationForward) {
    const TestProgram firefox("firefox", {u"class=firefox"_qs});
    ASSERT_TRUE(comesToFront(firefox));
    const TestProgram chromium("chromium", {u"class=Chromium"_qs});
    ASSERT_TRUE(comesToFront(chromium));
    EXPECT_TRUE(workspace->activate(*running(firefox.process())));
    EXPECT_TRUE(comesToFront(firefox));
}

TEST_F(X11WorkspaceTest, aChangeOfTheFrontApplicationIsTold) {
    std::vector<std::int32_t> told;
    const auto subscription = workspace->onActivation([&](const auto& application) {
        if (application)
            told.push_back(application->processIdentifier);
    });
    const TestProgram chromium("chromium", {u"class=Chromium"_qs, u"windows=2"_qs});
    ASSERT_TRUE(comesToFront(chromium));
    letEventsRun(100);
    const TestProgram firefox("firefox", {u"class=firefox"_qs});
    ASSERT_TRUE(eventually([&] { return !told.empty() && told.back() == firefox.process(); }));
    EXPECT_THAT(told, ::testing::ElementsAre(chromium.process(), firefox.process()))
        << "the second window of the first application is no change";
}

TEST_F(X11WorkspaceTest, whenTheLastWindowGoesNothingIsInFront) {
    bool none = false;
    std::optional<Subscription> subscription =
        workspace->onActivation([&](const auto& application) { none = !application.has_value(); });
    {
        const TestProgram chromium("chromium", {u"class=Chromium"_qs});
        ASSERT_TRUE(comesToFront(chromium));
        letEventsRun(50);
        EXPECT_FALSE(none);
    }
    EXPECT_TRUE(eventually([&] { return none; }));
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(X11WorkspaceTest, thisProgramHasItsOwnIdentifier) {
    QWindow window;
    window.resize(200, 100);
    window.show();
    ASSERT_TRUE(
        eventually([&] { return frontProcess() == static_cast<std::int32_t>(::getpid()); }));
    const auto front = workspace->frontmostApplication();
    EXPECT_EQ(front->bundleIdentifier, "app.brinmoor.mac");
    EXPECT_EQ(front->localizedName, "Brinmoor");
    EXPECT_EQ(workspace->ownBundleIdentifier(), "app.brinmoor.mac");
}

TEST(Desktop, anXServerAnswersWhereItIsTheDesktop) {
    const auto workspace = makeWorkspace();
    EXPECT_NE(dynamic_cast<X11Workspace*>(workspace.get()), nullptr);
}

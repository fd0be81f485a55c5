#include "tests/bridge/ScriptRunning.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Eventually.h"

#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"

#include <signal.h>
#include <sys/socket.h>

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>

namespace brinmoor::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string chromium = "org.chromium.Chromium";

HttpAnswer page(const HttpRequest& request) {
    if (request.path == "/favicon.ico")
        return {404, "text/plain", ""};
    if (request.path.starts_with("/slow"))
        return {200, "text/html", "<title>Slow</title><img src=/never>"};
    return {200, "text/html; charset=utf-8",
            "<title>Page " + request.path.substr(0, 20) + "</title><main><h1>Heading</h1></main>"};
}

ChromiumOptions options(bool connected = true) {
    return {BRINMOOR_HOST, BRINMOOR_EXTENSION, page, connected};
}

std::string captured(bool allTabs = false, bool prepareClose = false) {
    const auto result = runTool(captureScriptFor({chromium, false, allTabs, prepareClose}));
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.output;
}

std::string value(const std::string& expression) {
    const auto result = runTool("function run() { const app = Application('" + chromium +
                                "'); return " + expression + "; }");
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.output;
}

std::string closed(const std::string& target) {
    return runTool(closeScriptFor(chromium, target)).output;
}

/// Waits until `expression` gives this text.
bool becomes(const std::string& expression, const std::string& text) {
    std::string last;
    const bool reached = eventually([&] { return (last = value(expression)) == text; });
    EXPECT_TRUE(reached) << expression << " stays " << last;
    return reached;
}

/// The process at the other end of a host's socket.
pid_t hostProcess(const std::string& socketName) {
    const auto folder =
        bridge::openBridgeFolder(std::getenv("XDG_RUNTIME_DIR"), bridge::MissingFolder::leave);
    const auto connection =
        bridge::connectedTo(folder->number(), *bridge::hostOfSocket(socketName));
    ucred peer{};
    socklen_t size = sizeof peer;
    ::getsockopt(connection.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size);
    return peer.pid;
}

TEST(Road, capturesAndClosesATabOfARealBrowser) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    ASSERT_GE(browser.openTab("http://second.test/two"), 0);
    const Entries entries(captured(false, true));
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.text(0, "/url"), "http://second.test/two");
    EXPECT_EQ(entries.text(0, "/title"), "Page /two");
    EXPECT_EQ(entries.text(0, "/metadata/heading"), "Heading");
    EXPECT_EQ(closed(entries.json(0, "/closeTarget")), "true\n");
    EXPECT_TRUE(becomes("app.windows[0].tabs.url()", "[\"http://first.test/one\"]\n"));
    EXPECT_EQ(closed(entries.json(0, "/closeTarget")), "false\n");
}

TEST(Road, takesAddressesAsTheBrowserWritesThem) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/"}));
    for (const std::string address :
         {"http://list.test/?a[]=1&b=x|y", "http://list.test/a%7Cb/%zz", "http://list.test/~!$'()*",
          "http://xn--r8jz45g.test/%E3%83%91%E3%82%B9", "http://list.test/#frag[ment]|x"}) {
        ASSERT_GE(browser.openTab(address), 0) << address;
        const Entries entries(captured(false, true));
        EXPECT_EQ(entries.text(0, "/url"), address);
        EXPECT_EQ(entries.text(0, "/metadata/url"), address);
        EXPECT_EQ(closed(entries.json(0, "/closeTarget")), "true\n") << address;
    }
    (void)browser.call("tabs.create", "[{\"url\":\"http://例え.test/パス?q=あ\"}]");
    EXPECT_GE(browser.loadedTab("http://xn--r8jz45g.test/%E3%83%91%E3%82%B9?q=%E3%81%82"), 0);
}

TEST(Road, readsAWholeWindowWithPagesThatCannotBeRead) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"about:blank"}));
    ASSERT_GE(browser.openTab("chrome://version/"), 0);
    ASSERT_GE(browser.openTab("http://first.test/one"), 0);
    const Entries entries(captured(true));
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries.text(0, "/url"), "about:blank");
    EXPECT_EQ(entries.json(1, "/metadata"), "{}");
    EXPECT_EQ(entries.text(1, "/url"), "chrome://version/");
    EXPECT_EQ(entries.text(2, "/metadata/pageTitle"), "Page /one");
}

TEST(Road, findsAMovedTabByItsIdentifierButNotInAnotherWindow) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/", "http://second.test/"}));
    const int tab = browser.openTab("http://third.test/");
    const std::string number = std::to_string(tab);
    const std::string target = Entries(captured(false, true)).json(0, "/closeTarget");
    (void)browser.call("tabs.move", "[" + number + ",{\"index\":0}]");
    const int other = browser.openTab("http://other.test/");
    const std::string otherTarget = Entries(captured(false, true)).json(0, "/closeTarget");
    (void)browser.call("windows.create", "[{\"tabId\":" + std::to_string(other) + "}]");
    EXPECT_TRUE(becomes("app.windows.length", "2\n"));
    EXPECT_EQ(closed(otherTarget), "false\n");
    EXPECT_EQ(closed(target), "true\n");
}

TEST(Road, closesAReloadedTabAndNoneThatWentElsewhere) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/"}));
    const int tab = browser.openTab("http://second.test/two");
    const std::string number = std::to_string(tab);
    const std::string target = Entries(captured(false, true)).json(0, "/closeTarget");
    (void)browser.call("tabs.update", "[" + number + ",{\"url\":\"http://second.test/three\"}]");
    ASSERT_EQ(browser.loadedTab("http://second.test/three"), tab);
    EXPECT_EQ(closed(target), "false\n");
    (void)browser.call("tabs.update", "[" + number + ",{\"url\":\"http://second.test/two\"}]");
    ASSERT_EQ(browser.loadedTab("http://second.test/two"), tab);
    (void)browser.call("tabs.reload", "[" + number + "]");
    EXPECT_EQ(closed(target), "true\n");
}

TEST(Road, leavesATabThatIsJustLeavingItsAddress) {
    auto slowly = options();
    HttpServer silent([](const HttpRequest&) {
        std::this_thread::sleep_for(std::chrono::seconds(3));
        return HttpAnswer{};
    });
    ChromiumSession browser(std::move(slowly));
    ASSERT_TRUE(browser.start(
        {"http://first.test/"},
        {"--host-resolver-rules=MAP waiting.test 127.0.0.1:" + std::to_string(silent.port()) +
         ",MAP * 127.0.0.1:" + std::to_string(browser.port())}));
    const int tab = browser.openTab("http://second.test/two");
    const std::string target = Entries(captured(false, true)).json(0, "/closeTarget");
    (void)browser.call("tabs.update",
                       "[" + std::to_string(tab) + ",{\"url\":\"http://waiting.test/\"}]");
    EXPECT_EQ(closed(target), "false\n");
}

TEST(Road, readsAnUnloadedTabByItsTitle) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    ASSERT_GE(browser.openTab("http://second.test/two"), 0);
    const int first = browser.loadedTab("http://first.test/one");
    (void)browser.call("tabs.discard", "[" + std::to_string(first) + "]");
    const Entries entries(captured(true));
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries.text(0, "/title"), "Page /one");
    EXPECT_EQ(entries.json(0, "/metadata"), "{}");
    EXPECT_EQ(entries.text(1, "/metadata/pageTitle"), "Page /two");
}

TEST(Road, keepsTheOrderOfTheWindowsFocus) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/"}));
    (void)browser.call("windows.create", "[{\"url\":\"http://second.test/\"}]");
    (void)browser.call("windows.create", "[{\"url\":\"http://third.test/\",\"type\":\"popup\"}]");
    const std::string order = "app.windows().map(w => w.tabs()[0].url().slice(7, 10)).join()";
    EXPECT_TRUE(becomes(order, "thi,sec,fir\n"));
    (void)value("(() => { app.windows()[2].index = 1; })()");
    EXPECT_TRUE(becomes(order, "fir,thi,sec\n"));
    (void)value("(() => { app.windows()[1].index = 1; })()");
    EXPECT_TRUE(becomes(order, "thi,fir,sec\n"));
}

TEST(Road, bringsATabOfAMinimisedWindowForward) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/"}));
    (void)browser.call("windows.create", "[{\"url\":\"http://second.test/\"}]");
    EXPECT_TRUE(
        becomes("app.windows().map(w => w.tabs()[0].url().slice(7, 10)).join()", "sec,fir\n"));
    ASSERT_GE(browser.openTab("http://second.test/two"), 0);
    const std::string window = browser.call("windows.getLastFocused", "[]");
    const std::string number = window.substr(window.find("\"id\":") + 5, 12);
    (void)browser.call("windows.update", "[" + std::to_string(std::atoi(number.c_str())) +
                                             ",{\"state\":\"minimized\"}]");
    EXPECT_TRUE(becomes("app.windows().map(w => w.minimized()).join()", "false,true\n"));
    (void)value("(() => { const w = app.windows()[1]; w.activeTabIndex = 1; w.minimized = false; "
                "w.index = 1; app.activate(); })()");
    EXPECT_TRUE(becomes("[app.windows[0].minimized(), app.windows[0].activeTab().url()]",
                        "[false,\"http://second.test/\"]\n"));
}

TEST(Road, findsTheBrowserAgainAfterItsHelperDied) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    const auto sockets = browser.sockets();
    const pid_t killed = hostProcess(sockets.at(0));
    ASSERT_EQ(::kill(killed, SIGKILL), 0);
    ASSERT_TRUE(eventually([&] {
        const auto now = browser.sockets();
        return now.size() == 1 && hostProcess(now[0]) != killed;
    }));
    EXPECT_EQ(browser.sockets(), sockets);
    EXPECT_EQ(Entries(captured()).text(0, "/metadata/pageTitle"), "Page /one");
}

TEST(Road, closesNothingAfterTheBrowserWasStartedAnew) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    const auto sockets = browser.sockets();
    const std::string target = Entries(captured(false, true)).json(0, "/closeTarget");
    browser.stop();
    // The helper sees the browser's end a moment later.
    EXPECT_TRUE(browser.waitForSockets(0));
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    ASSERT_GE(browser.loadedTab("http://first.test/one"), 0);
    const auto again = browser.sockets();
    ASSERT_EQ(again.size(), 1U);
    EXPECT_NE(again, sockets);
    EXPECT_EQ(bridge::hostOfSocket(again[0])->profile, bridge::hostOfSocket(sockets[0])->profile);
    EXPECT_EQ(closed(target), "false\n");
}

TEST(Road, showsTwoProfilesAsOneApplication) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    browser.open({"--profile-directory=Profile 2", "http://second.test/two"});
    ASSERT_TRUE(browser.waitForSockets(2));
    EXPECT_TRUE(becomes("app.windows().map(w => w.tabs()[0].url()).join()",
                        "http://second.test/two,http://first.test/one\n"));
    EXPECT_TRUE(becomes("new Set(app.windows.id()).size", "2\n"));
    const std::string target = Entries(captured(false, true)).json(0, "/closeTarget");
    EXPECT_EQ(closed(target), "true\n");
    EXPECT_TRUE(becomes("app.windows.length", "1\n"));
}

TEST(Road, isNotAuthorizedInABrowserThatKnowsNoHelper) {
    ChromiumSession browser(options(false));
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    const auto result = runTool(captureScriptFor({chromium, false, false, false}));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("not authorized"));
    EXPECT_THAT(result.errors, HasSubstr("-1743"));
}

TEST(Road, failsAtAPageThatAnswersNothingWithoutLosingTheOthers) {
    std::atomic<bool> looping = false;
    auto stuck = options();
    stuck.pages = [&](const HttpRequest& request) {
        if (request.path == "/looping")
            looping = true;
        return request.path != "/stuck"
                   ? page(request)
                   : HttpAnswer{200, "text/html",
                                "<title>Stuck</title><script>onload = () => setTimeout(() => { "
                                "const told = new XMLHttpRequest(); told.open('GET', '/looping', "
                                "false); told.send(); for (;;) {} })</script>"};
    };
    ChromiumSession browser(std::move(stuck));
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    ASSERT_GE(browser.openTab("http://stuck.test/stuck"), 0);
    ASSERT_TRUE(eventually([&] { return looping.load(); }));
    const Entries entries(captured(true));
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries.text(0, "/metadata/pageTitle"), "Page /one");
    EXPECT_EQ(entries.text(1, "/title"), "Stuck");
    EXPECT_EQ(entries.json(1, "/metadata"), "{}");
}

TEST(Road, tellsWhetherTheBrowserHasTheFocus) {
    ChromiumSession browser(options());
    ASSERT_TRUE(browser.start({"http://first.test/one"}));
    const auto folder =
        bridge::openBridgeFolder(std::getenv("XDG_RUNTIME_DIR"), bridge::MissingFolder::leave);
    const auto watcher =
        bridge::connectedTo(folder->number(), *bridge::hostOfSocket(browser.sockets().at(0)));
    const auto soon = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    ASSERT_TRUE(bridge::writeFrame(watcher.number(),
                                   R"({"id":1,"protocol":1,"request":"watchFocus"})",
                                   bridge::frameCapToBrowser, soon)
                    .ok());
    bridge::FrameDecoder decoder(1000);
    const auto receive = [&] {
        const auto told = bridge::readFrame(watcher.number(), decoder, soon);
        return told ? *told : std::string();
    };
    const std::string focused = R"("result":{"focused":true}})";
    EXPECT_THAT(receive(), HasSubstr(focused));
    const auto ask = [&] {
        EXPECT_TRUE(bridge::writeFrame(watcher.number(),
                                       R"({"id":2,"protocol":1,"request":"focus"})",
                                       bridge::frameCapToBrowser, soon)
                        .ok());
        std::string answer = receive();
        while (!answer.empty() && !answer.starts_with(R"({"id":2,)"))
            answer = receive();
        return answer;
    };
    {
        const ChildProcess otherProgram(ChildOptions{{"/usr/bin/xev"}, {}, true});
        EXPECT_TRUE(
            eventually([&] { return ask().find("\"focused\":false") != std::string::npos; }));
    }
    // Its window is gone, so the focus comes back to the browser, which tells so by itself, in some
    // browsers after it has told that the focus had gone.
    const std::string toldFocused = R"({"id":1,"protocol":1,)" + focused;
    std::string told = receive();
    while (!told.empty() && told != toldFocused)
        told = receive();
    EXPECT_EQ(told, toldFocused);
    EXPECT_TRUE(eventually([&] { return ask().find(focused) != std::string::npos; }));
}

} // namespace
} // namespace brinmoor::testing

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    ::signal(SIGPIPE, SIG_IGN);
    return RUN_ALL_TESTS();
}

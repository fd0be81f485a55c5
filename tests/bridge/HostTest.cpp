#include "tests/bridge/FakeBrowser.h"

#include <sys/stat.h>

#include <gmock/gmock.h>

#include <csignal>
#include <fstream>
#include <sstream>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using testing::eventually;
using testing::FakeBrowser;
using testing::HostClient;
using ::testing::IsEmpty;
using ::testing::SizeIs;
namespace fs = std::filesystem;

std::vector<std::string> entriesOf(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folder, missing))
        names.push_back(entry.path().filename());
    return names;
}

/// The first child of a process; 0 when it has none.
pid_t childOf(pid_t process) {
    const std::string number = std::to_string(process);
    std::ifstream file("/proc/" + number + "/task/" + number + "/children");
    pid_t child = 0;
    file >> child;
    return child;
}

class BrowserHost : public ::testing::Test {
protected:
    void SetUp() override { std::signal(SIGPIPE, SIG_IGN); }
    [[nodiscard]] HostClient client(const FakeBrowser& browser) const {
        return {runtime.path(), browser.host()};
    }
    [[nodiscard]] std::string sockets() const { return runtime.path("brinmoor"); }

    testing::ScratchFolder runtime;
};

TEST_F(BrowserHost, isFoundOnceTheExtensionHasSaidHello) {
    FakeBrowser browser(runtime.path());
    ASSERT_TRUE(eventually([&] { return fs::exists(sockets()); }));
    EXPECT_THAT(entriesOf(sockets()), IsEmpty());
    browser.sendHello();
    EXPECT_TRUE(client(browser).connected());
    EXPECT_THAT(entriesOf(sockets()), ::testing::ElementsAre(bridge::socketName(browser.host())));
}

TEST_F(BrowserHost, carriesARequestThereAndItsAnswerBack) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto tool = client(browser);
    tool.send(R"({"id":77,"protocol":1,"request":"windows"})");
    EXPECT_EQ(browser.receive(), R"({"id":1,"protocol":1,"request":"windows"})");
    browser.send(R"({"id":1,"protocol":1,"result":{"windows":[]}})");
    EXPECT_EQ(tool.receive(), R"({"id":77,"protocol":1,"result":{"windows":[]}})");
}

TEST_F(BrowserHost, givesEachOfSeveralClientsItsOwnAnswer) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    std::vector<HostClient> tools;
    for (int i = 0; i < 10; ++i) {
        tools.push_back(client(browser));
        tools.back().send(R"({"id":1,"from":)" + std::to_string(i) + "}");
    }
    std::vector<std::string> requests;
    for (int i = 0; i < 10; ++i)
        requests.push_back(browser.receive());
    for (auto request = requests.rbegin(); request != requests.rend(); ++request)
        browser.send(*request);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(tools[static_cast<std::size_t>(i)].receive(),
                  R"({"id":1,"from":)" + std::to_string(i) + "}");
}

TEST_F(BrowserHost, holdsNothingOfAClientThatWentAway) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto gone = client(browser);
    gone.send(R"({"id":5,"a":1})");
    EXPECT_EQ(browser.receive(), R"({"id":1,"a":1})");
    gone.leave();
    auto next = client(browser);
    next.send(R"({"id":5,"b":1})");
    EXPECT_EQ(browser.receive(), R"({"id":2,"b":1})");
    browser.send(R"({"id":1,"late":1})");
    browser.send(R"({"id":2,"right":1})");
    EXPECT_EQ(next.receive(), R"({"id":5,"right":1})");
}

TEST_F(BrowserHost, dropsAnswersThatNobodyAskedFor) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    browser.send(R"({"id":12,"never":"asked"})");
    auto tool = client(browser);
    tool.send(R"({"id":1,"a":1})");
    EXPECT_EQ(browser.receive(), R"({"id":1,"a":1})");
    browser.send(R"({"id":1,"b":1})");
    browser.send(R"({"id":1,"twice":1})");
    EXPECT_EQ(tool.receive(), R"({"id":1,"b":1})");
    tool.send(R"({"id":2,"c":1})");
    EXPECT_EQ(browser.receive(), R"({"id":2,"c":1})");
    browser.send(R"({"id":2,"d":1})");
    EXPECT_EQ(tool.receive(), R"({"id":2,"d":1})");
}

class BadClient : public BrowserHost, public ::testing::WithParamInterface<std::string> {};

TEST_P(BadClient, isDroppedAndTheOthersAreServed) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto bad = client(browser);
    auto good = client(browser);
    const std::string& bytes = GetParam();
    ASSERT_EQ(::write(bad.number(), bytes.data(), bytes.size()),
              static_cast<ssize_t>(bytes.size()));
    EXPECT_TRUE(bad.isDropped());
    good.send(R"({"id":1,"a":1})");
    EXPECT_EQ(browser.receive(), R"({"id":1,"a":1})");
}

std::string framed(const std::string& body) {
    return bridge::frameHeader(body.size()) + body;
}

INSTANTIATE_TEST_SUITE_P(Cases, BadClient,
                         ::testing::Values(bridge::frameHeader(bridge::frameCapToBrowser),
                                           bridge::frameHeader(0xffffffff), framed("not JSON"),
                                           framed(""), framed(R"({"id":0,"event":"hello"})")));

TEST_F(BrowserHost, takesRequestsUpToWhatTheBrowserTakes) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto tool = client(browser);
    const std::string request =
        R"({"id":1,"a":")" + std::string(bridge::frameCapToBrowser - 32 - 15, 'x') + "\"}";
    tool.send(request);
    EXPECT_EQ(browser.receive().size(), request.size());
}

TEST_F(BrowserHost, dropsAClientThatAsksWithoutEnd) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto flood = client(browser);
    for (int i = 1; i <= 65; ++i)
        flood.send(R"({"id":)" + std::to_string(i) + R"(,"a":1})");
    EXPECT_TRUE(flood.isDropped());
}

TEST_F(BrowserHost, stopsReadingClientsWhileTheBrowserTakesNothing) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto tool = client(browser);
    const std::string request = R"({"id":1,"a":")" + std::string(900'000, 'x') + "\"}";
    std::size_t sent = 0;
    while (sent < 60 && bridge::writeFrame(tool.number(), request, bridge::frameCapToBrowser,
                                           std::chrono::steady_clock::now() + 300ms)
                            .ok())
        ++sent;
    EXPECT_LT(sent, 10U);
    for (std::size_t i = 0; i < sent; ++i)
        EXPECT_EQ(browser.receive().size(), request.size());
}

TEST_F(BrowserHost, carriesAnAnswerOfManyMegabytes) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto tool = client(browser);
    tool.send(R"({"id":1,"a":1})");
    (void)browser.receive();
    const std::string answer = R"({"id":1,"a":")" + std::string(30'000'000, 'x') + "\"}";
    std::thread sending([&] { browser.send(answer); });
    EXPECT_TRUE(tool.receive() == answer);
    sending.join();
}

TEST_F(BrowserHost, endsAndRemovesItsSocketWhenTheBrowserClosesItsEnd) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto tool = client(browser);
    browser.process().closeInput();
    EXPECT_EQ(browser.process().waitForExit(), 0);
    EXPECT_TRUE(tool.isDropped());
    EXPECT_THAT(entriesOf(sockets()), IsEmpty());
}

TEST_F(BrowserHost, endsWhenTheBrowserNoLongerReads) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    ASSERT_TRUE(client(browser).connected());
    browser.process().closeOutput();
    EXPECT_EQ(browser.process().waitForExit(), 0);
    EXPECT_THAT(entriesOf(sockets()), IsEmpty());
}

TEST_F(BrowserHost, removesItsSocketWhenItIsToldToStop) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    ASSERT_TRUE(client(browser).connected());
    ::kill(childOf(browser.process().process()), SIGTERM);
    EXPECT_EQ(browser.process().waitForExit(), 0);
    EXPECT_THAT(entriesOf(sockets()), IsEmpty());
}

TEST_F(BrowserHost, clearsAwayWhatAKilledOneLeft) {
    {
        FakeBrowser browser(runtime.path());
        browser.sendHello();
        ASSERT_TRUE(client(browser).connected());
        ::kill(childOf(browser.process().process()), SIGKILL);
        EXPECT_EQ(browser.process().waitForExit(), 128 + SIGKILL);
    }
    EXPECT_THAT(entriesOf(sockets()), SizeIs(1));
    FakeBrowser next(runtime.path());
    next.sendHello();
    ASSERT_TRUE(client(next).connected());
    EXPECT_THAT(entriesOf(sockets()), ::testing::ElementsAre(bridge::socketName(next.host())));
}

class BadBrowserFrame : public BrowserHost, public ::testing::WithParamInterface<std::string> {};

TEST_P(BadBrowserFrame, endsTheHost) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    const std::string& bytes = GetParam();
    ASSERT_GT(::write(browser.process().input(), bytes.data(), bytes.size()), 0);
    EXPECT_EQ(browser.process().waitForExit(), 1);
    EXPECT_THAT(entriesOf(sockets()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Cases, BadBrowserFrame,
                         ::testing::Values(framed("text"),
                                           bridge::frameHeader(bridge::frameCapFromBrowser + 1)));

TEST_F(BrowserHost, ignoresEventsThatItDoesNotKnow) {
    FakeBrowser browser(runtime.path());
    for (const char* event :
         {R"({"id":0,"event":"sneeze"})", R"({"id":0,"event":"hello","profile":"../../x"})",
          R"({"id":0,"event":"hello"})", R"({"id":0,"event":7})", R"({"id":0,"event":"focus"})",
          R"({"id":0,broken})"})
        browser.send(event);
    browser.sendHello();
    EXPECT_TRUE(client(browser).connected());
}

TEST_F(BrowserHost, keepsItsStandardStreamsAwayFromTheBrowser) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    ASSERT_TRUE(client(browser).connected());
    const std::string host = "/proc/" + std::to_string(childOf(browser.process().process()));
    EXPECT_EQ(fs::read_symlink(host + "/fd/0"), "/dev/null");
    EXPECT_EQ(fs::read_symlink(host + "/fd/1"), "/dev/null");
}

TEST_F(BrowserHost, knowsItsBrowserThroughAShell) {
    FakeBrowser browser(runtime.path(),
                        "/bin/sh -c '\"$0\" \"$1\"; exit $?' \"$0\" \"$1\"; exit $?");
    browser.sendHello();
    EXPECT_TRUE(client(browser).connected());
}

TEST_F(BrowserHost, servesNothingButABrowser) {
    FakeBrowser other(runtime.path(), "\"$0\" \"$1\"; exit $?", "not-a-browser");
    EXPECT_EQ(other.process().waitForExit(), 1);
}

TEST_F(BrowserHost, servesNoOtherExtension) {
    FakeBrowser browser(runtime.path(), "\"$0\" \"$1\"; exit $?", "chromium",
                        "chrome-extension://aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa/");
    EXPECT_EQ(browser.process().waitForExit(), 1);
}

TEST_F(BrowserHost, refusesAFolderThatIsALink) {
    fs::create_directory(runtime.path("elsewhere"));
    fs::create_directory_symlink("elsewhere", sockets());
    FakeBrowser browser(runtime.path());
    EXPECT_EQ(browser.process().waitForExit(), 1);
    EXPECT_THAT(entriesOf(runtime.path("elsewhere")), IsEmpty());
}

TEST_F(BrowserHost, tellsWhoWatchesWhetherTheBrowserHasTheFocus) {
    FakeBrowser browser(runtime.path());
    browser.sendHello();
    auto watcher = client(browser);
    watcher.send(R"({"id":3,"protocol":1,"request":"watchFocus"})");
    EXPECT_EQ(watcher.receive(), R"({"id":3,"protocol":1,"result":{"focused":false}})");
    browser.send(R"({"id":0,"protocol":1,"event":"focus","focused":true})");
    EXPECT_EQ(watcher.receive(), R"({"id":3,"protocol":1,"result":{"focused":true}})");
    auto late = client(browser);
    late.send(R"({"id":9,"protocol":1,"request":"watchFocus"})");
    EXPECT_EQ(late.receive(), R"({"id":9,"protocol":1,"result":{"focused":true}})");
}

TEST_F(BrowserHost, servesTheProfilesOfOneBrowserSideBySide) {
    // One browser process starts a helper for each profile; here each has a browser of its own.
    FakeBrowser first(runtime.path());
    FakeBrowser second(runtime.path());
    first.sendHello("00000000000000aa");
    second.sendHello("00000000000000bb");
    EXPECT_TRUE(HostClient(runtime.path(), first.host("00000000000000aa")).connected());
    EXPECT_TRUE(HostClient(runtime.path(), second.host("00000000000000bb")).connected());
}

} // namespace
} // namespace brinmoor

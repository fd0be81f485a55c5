#include "bridge/ExtensionIdentity.h"
#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Eventually.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <thread>

extern char** environ; // NOLINT: the C library's own

// What the road to the browser costs, each measure beside what it is compared with, in interleaved
// rounds. Prints medians and ratios. With a display the round trips of a real Chromium follow.

namespace {

using namespace brinmoor;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int rounds = 21;

struct Contender {
    std::string name;
    std::function<void()> work;
    std::vector<double> milliseconds = {};

    [[nodiscard]] double median() {
        const auto middle = milliseconds.begin() + static_cast<long>(milliseconds.size() / 2);
        std::nth_element(milliseconds.begin(), middle, milliseconds.end());
        return *middle;
    }
};

void race(const char* title, std::vector<Contender> contenders) {
    for (int round = -2; round < rounds; ++round)
        for (Contender& each : contenders) {
            const auto start = Clock::now();
            each.work();
            const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
            if (round >= 0)
                each.milliseconds.push_back(taken.count());
        }
    std::printf("%s\n", title);
    const double first = contenders.front().median();
    for (Contender& each : contenders)
        std::printf("  %-44s %6.2fx %9.3f ms\n", each.name.c_str(), each.median() / first,
                    each.median());
}

void runToExit(std::vector<std::string> line) {
    std::vector<char*> arguments;
    for (std::string& argument : line)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    int status = 0;
    if (::posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ) != 0 ||
        ::waitpid(process, &status, 0) != process || status != 0) {
        std::fprintf(stderr, "%s failed\n", arguments[0]);
        std::exit(EXIT_FAILURE);
    }
    posix_spawn_file_actions_destroy(&actions);
}

std::vector<std::string> tool(const std::string& script) {
    return {BRINMOOR_AUTOMATION, "-l", "JavaScript", "-e", script};
}

/// A connection that asks and waits.
class Asking {
public:
    explicit Asking(bridge::FileDescriptor connection) : connection_(std::move(connection)) {}

    std::string ask(const std::string& body) {
        const auto soon = Clock::now() + 20s;
        const auto sent =
            bridge::writeFrame(connection_.number(), body, bridge::frameCapToBrowser, soon);
        const auto answer = bridge::readFrame(connection_.number(), decoder_, soon);
        if (!sent || !answer) {
            std::fprintf(stderr, "no answer\n");
            std::exit(EXIT_FAILURE);
        }
        return *answer;
    }

private:
    bridge::FileDescriptor connection_;
    bridge::FrameDecoder decoder_{bridge::frameCapFromBrowser};
};

/// Answers every frame at `input` with the answer to a request for windows, under its number.
void answerWindows(int input, int output) {
    bridge::FrameDecoder decoder(bridge::frameCapFromBrowser);
    while (const auto request = bridge::readFrame(input, decoder, Clock::now() + 1h)) {
        const std::string number = request->substr(0, request->find(','));
        (void)bridge::writeFrame(output, number + R"(,"protocol":1,"result":{"windows":[]}})",
                                 bridge::frameCapFromBrowser, Clock::now() + 20s);
    }
}

/// The real helper program under a process that is a browser by its name, and a thread in the
/// extension's place.
class StandInBrowser {
public:
    explicit StandInBrowser(const std::string& runtime) : browser_(start(runtime)) {
        for (const int end : {browser_.input(), browser_.output()})
            ::fcntl(end, F_SETFL, O_NONBLOCK);
        (void)bridge::writeFrame(browser_.input(),
                                 R"({"id":0,"protocol":1,"event":"hello","profile":)"
                                 R"("0123456789abcdef","version":"1"})",
                                 bridge::frameCapFromBrowser, Clock::now() + 20s);
        thread_ = std::thread([this] { answerWindows(browser_.output(), browser_.input()); });
    }
    StandInBrowser(const StandInBrowser&) = delete;
    StandInBrowser& operator=(const StandInBrowser&) = delete;
    ~StandInBrowser() {
        browser_.endGroup();
        thread_.join();
    }

    [[nodiscard]] Asking connect(const std::string& runtime) const {
        bridge::FileDescriptor connection;
        (void)testing::eventually([&] {
            const auto folder =
                bridge::openBridgeFolder(runtime.c_str(), bridge::MissingFolder::leave);
            if (folder)
                connection =
                    bridge::connectedTo(folder->number(), {"org.chromium.Chromium",
                                                           browser_.process(), "0123456789abcdef"});
            return static_cast<bool>(connection);
        });
        return Asking(std::move(connection));
    }

private:
    testing::ChildProcess start(const std::string& runtime) {
        const std::string program = folder_.path("chromium");
        std::filesystem::copy_file("/bin/sh", program);
        return testing::ChildProcess({{program, "-c", "\"$0\" \"$1\"; exit $?", BRINMOOR_HOST,
                                       std::string(bridge::extensionOrigin)},
                                      {{"XDG_RUNTIME_DIR", runtime}},
                                      false});
    }

    testing::ScratchFolder folder_;
    testing::ChildProcess browser_;
    std::thread thread_;
};

const std::string windowsRequest = R"({"id":1,"protocol":1,"request":"windows"})";

void raceWithAStandIn() {
    const testing::ScratchFolder runtime;
    ::setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1);
    const StandInBrowser browser(runtime.path());
    Asking host = browser.connect(runtime.path());
    std::array<int, 2> ends{};
    (void)::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data());
    std::thread echo([&] { answerWindows(ends[1], ends[1]); });
    {
        Asking direct{bridge::FileDescriptor(ends[0])};
        const auto hundred = [](Asking& asking) {
            return [&asking] {
                for (int i = 0; i < 100; ++i)
                    (void)asking.ask(windowsRequest);
            };
        };
        race("A hundred round trips", {{"one socket, no helper program", hundred(direct)},
                                       {"through brinmoor-browser-host", hundred(host)}});
    }
    echo.join();
    const std::string application = "Application('org.chromium.Chromium')";
    race("A process from its start to its exit",
         {{"an empty QCoreApplication", [] { runToExit({BRINMOOR_EMPTY_QT_PROGRAM}); }},
          {"brinmoor-automation, a script alone",
           [] { runToExit(tool("function run() { return 1; }")); }},
          {"brinmoor-automation, one message",
           [&] {
               runToExit(tool("function run() { return " + application + ".windows.length; }"));
           }},
          {"node, a script alone", [] {
               runToExit({BRINMOOR_NODE, "-e", "1"});
           }}});
}

testing::HttpAnswer page(const testing::HttpRequest& request) {
    return {200, "text/html", "<title>" + request.path + "</title><main><h1>H</h1></main>"};
}

void measureChromium(const std::string& runtime) {
    ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    testing::ChromiumSession browser({BRINMOOR_HOST, BRINMOOR_EXTENSION, page});
    if (!browser.start({"http://first.test/"}))
        return;
    for (int i = 0; i < 50; ++i)
        (void)browser.call("tabs.create", "[{\"url\":\"http://first.test/" + std::to_string(i) +
                                              "\",\"active\":false}]");
    const int tab = browser.loadedTab("http://first.test/49");
    const auto folder = bridge::openBridgeFolder(runtime.c_str(), bridge::MissingFolder::leave);
    Asking host(
        bridge::connectedTo(folder->number(), *bridge::hostOfSocket(browser.sockets().at(0))));
    const std::string number = std::to_string(tab);
    race(
        "Chromium with 51 tabs, from socket to extension and back",
        {{"no work (focus)", [&] { (void)host.ask(R"({"id":1,"protocol":1,"request":"focus"})"); }},
         {"one tab afresh",
          [&] { (void)host.ask(R"({"id":1,"protocol":1,"request":"tab","tab":)" + number + "}"); }},
         {"all windows with their tabs", [&] { (void)host.ask(windowsRequest); }},
         {"the page reader in one tab", [&] {
              (void)host.ask(R"({"id":1,"protocol":1,"request":"readPage","tab":)" + number + "}");
          }}});
}

} // namespace

int main() {
    std::signal(SIGPIPE, SIG_IGN);
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    const std::string session = runtime != nullptr ? runtime : "";
    raceWithAStandIn();
    if (std::getenv("DISPLAY") != nullptr && !session.empty())
        measureChromium(session);
}

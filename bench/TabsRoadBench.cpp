// What a reading of 500 open tabs costs in a real Chromium, beside its floor: the script tool's
// start and one bare round trip. Interleaved rounds, medians, ratios first. Needs a desktop.

#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"
#include "browser/TabScripts.h"
#include "core/tabs/RankedTabs.h"
#include "core/tabs/TabCleanupPlanner.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Eventually.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using Time = std::chrono::steady_clock;

constexpr int rounds = 15;
constexpr int windows = 5;
constexpr int tabsOfAWindow = 100;

const Browser& chromium() {
    return *Browser::find("org.chromium.Chromium");
}

[[noreturn]] void giveUp(const char* why) {
    std::fprintf(stderr, "%s\n", why);
    std::exit(EXIT_FAILURE);
}

std::string ran(const std::string& script) {
    const auto result =
        testing::runProgram({BRINMOOR_AUTOMATION, "-l", "JavaScript", "-e", script});
    if (result.status != 0)
        giveUp(result.errors.c_str());
    return result.output;
}

/// A hundred pages in each window, loaded or not: a tab's title and address are there at once.
void openTabs(testing::ChromiumSession& browser) {
    for (int window = 0; window < windows; ++window) {
        std::string urls;
        for (int tab = 0; tab < tabsOfAWindow; ++tab)
            urls += (tab > 0 ? "," : "") +
                    std::string("\"http://page.test/a-page-of-some-length/") +
                    std::to_string(window) + "/" + std::to_string(tab) + "?query=value\"";
        (void)browser.call("windows.create", "[{\"url\":[" + urls + "]}]");
    }
}

std::size_t countOfOpen() {
    const auto tabs = decodeOpenTabs(ran(readTabsScript(chromium())));
    return tabs ? tabs->size() : 0;
}

struct Host {
    bridge::FileDescriptor connection;
    bridge::FrameDecoder decoder{bridge::frameCapFromBrowser};

    std::size_t ask(const std::string& request) {
        const auto soon = Time::now() + 20s;
        const auto sent =
            bridge::writeFrame(connection.number(), request, bridge::frameCapToBrowser, soon);
        const auto answer = bridge::readFrame(connection.number(), decoder, soon);
        if (!sent || !answer)
            giveUp("no answer");
        return answer->size();
    }
};

struct Measure {
    const char* name;
    std::function<void()> work;
    std::vector<double> milliseconds = {};

    [[nodiscard]] double median() {
        const auto middle = milliseconds.begin() + static_cast<long>(milliseconds.size() / 2);
        std::nth_element(milliseconds.begin(), middle, milliseconds.end());
        return *middle;
    }
};

void interleave(std::vector<Measure>& measures) {
    for (int round = -2; round < rounds; ++round)
        for (Measure& each : measures) {
            const auto start = Time::now();
            each.work();
            const std::chrono::duration<double, std::milli> taken = Time::now() - start;
            if (round >= 0)
                each.milliseconds.push_back(taken.count());
        }
}

void print(std::vector<Measure>& measures, double floor) {
    for (Measure& each : measures)
        std::printf("  %-58s %6.2fx %9.3f ms\n", each.name, each.median() / floor, each.median());
}

void measure(testing::ChromiumSession& browser) {
    const auto folder =
        bridge::openBridgeFolder(std::getenv("XDG_RUNTIME_DIR"), bridge::MissingFolder::leave);
    Host host{
        bridge::connectedTo(folder->number(), *bridge::hostOfSocket(browser.sockets().at(0)))};
    const std::string request = R"({"id":1,"protocol":1,"request":"windows"})";
    std::printf("Chromium with %zu tabs; an answer of %zu bytes\n", countOfOpen(),
                host.ask(request));
    const std::string pages = ran(readTabsScript(chromium()));
    const std::string snapshots = ran(readTabsForCleanupScript(chromium()));
    const auto tabs = decodeOpenTabs(pages).value();
    std::vector<Measure> measures{
        {"a script alone, from start to exit", [] { (void)ran("function run() { return 1; }"); }},
        {"one bare round trip for all windows", [&] { (void)host.ask(request); }},
        {"reading for the search, from start to exit",
         [] { (void)ran(readTabsScript(chromium())); }},
        {"reading for the cleanup, from start to exit",
         [] { (void)ran(readTabsForCleanupScript(chromium())); }},
        {"decoding the pages", [&] { (void)decodeOpenTabs(pages); }},
        {"a keystroke: ranking the pages", [&] { (void)rankedTabs(tabs, "page 7"); }},
        {"decoding and planning duplicates", [&] {
             (void)TabCleanupPlanner::duplicateAndEmptyCandidates(
                 decodeTabSnapshots(snapshots).value());
         }}};
    interleave(measures);
    const double floor = measures[0].median() + measures[1].median();
    print(measures, floor);
    std::printf("  1.00x is the first two together: %.3f ms\n", floor);
    std::printf("  reading without the script's start: %.2f round trips\n",
                (measures[2].median() - measures[0].median()) / measures[1].median());
}

/// Closing can be measured once only: what was closed is gone.
void measureClosing() {
    const auto snapshots = decodeTabSnapshots(ran(readTabsForCleanupScript(chromium()))).value();
    std::vector<BrowserTabSnapshot> unwanted;
    for (const BrowserTabSnapshot& tab : snapshots)
        if (tab.index % 5 == 2)
            unwanted.push_back(tab);
    unwanted = TabCleanupPlanner::domainCandidates(unwanted, {"page.test"});
    const auto start = Time::now();
    std::string closed;
    double longest = 0;
    for (const std::string& script : closeTabsScripts(chromium(), unwanted)) {
        const auto begun = Time::now();
        closed += ran(script);
        const std::chrono::duration<double, std::milli> taken = Time::now() - begun;
        longest = std::max(longest, taken.count());
    }
    const std::chrono::duration<double, std::milli> taken = Time::now() - start;
    std::replace(closed.begin(), closed.end(), '\n', ' ');
    std::printf("  closing %zu of them, each compared afresh: %.0f ms, %.2f ms a tab; the longest "
                "script %.0f ms; closed %s\n",
                unwanted.size(), taken.count(),
                taken.count() / static_cast<double>(unwanted.size()), longest, closed.c_str());
}

} // namespace
} // namespace brinmoor

int main() {
    using namespace brinmoor;
    std::signal(SIGPIPE, SIG_IGN);
    testing::ChromiumSession browser(
        {BRINMOOR_HOST, BRINMOOR_EXTENSION, [](const testing::HttpRequest& request) {
             return testing::HttpAnswer{200, "text/html",
                                        "<title>Page " + request.path + "</title>"};
         }});
    if (!browser.start({"http://start.test/"}))
        giveUp("the browser doesn't start");
    openTabs(browser);
    if (!testing::eventually([] { return countOfOpen() > windows * tabsOfAWindow; }, 120s))
        giveUp("the tabs don't open");
    // Pages that still load would be measured too.
    if (!testing::eventually(
            [&] { return browser.call("tabs.query", R"([{"status":"loading"}])") == "[]"; }, 240s))
        giveUp("the pages don't load");
    measure(browser);
    measureClosing();
}

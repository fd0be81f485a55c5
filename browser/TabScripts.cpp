#include "browser/TabScripts.h"

#include "browser/scripts/Scripts.h"
#include "core/tabs/TabTarget.h"

#include <iterator>
#include <ranges>

namespace brinmoor {
namespace {

/// Linux takes an argument of 128 KiB at most, of which the script's fixed part needs a little.
constexpr std::size_t mostTargetBytes = std::size_t{120} << 10;
/// A browser with hundreds of tabs takes up to a quarter of a second to close one that is compared
/// afresh: as many as are done well within the time that one script has.
constexpr int mostTargets = 40;

std::string application(const Browser& browser) {
    return "Application('" + std::string(browser.id) + "')";
}

std::string described(const Browser& browser) {
    return "{ id: '" + std::string(browser.id) + "', name: '" + std::string(browser.name) +
           "', safari: " + (browser.isSafari() ? "true" : "false") + " }";
}

std::string readScript(std::string_view function, const Browser& browser) {
    return std::string(scripts::browserTabs) + "\nfunction run() { return JSON.stringify(" +
           std::string(function) + "(" + application(browser) + ", " + described(browser) +
           ")); }\n";
}

template <class Tab>
std::string targetOf(const Browser& browser, const Tab& tab) {
    return encoded(TabTarget{tab.windowID, tab.tabID, tab.index, tab.url, browser.isSafari()});
}

std::string closeScript(const Browser& browser, const std::string& targets) {
    return std::string(scripts::captureHelpers) + "\n" + std::string(scripts::closeBrowserTabs) +
           "\nfunction run() { return String(closeBrowserTabs(" + application(browser) + ", [" +
           targets + "])); }\n";
}

} // namespace

std::string readTabsScript(const Browser& browser) {
    return readScript("readBrowserTabs", browser);
}

std::string readTabsForCleanupScript(const Browser& browser) {
    return readScript("readBrowserTabsForCleanup", browser);
}

std::string checkAccessScript(const Browser& browser) {
    return "function run() { return String(" + application(browser) + ".windows.length); }\n";
}

std::string activateTabScript(const Browser& browser, const OpenBrowserTab& tab) {
    return std::string(scripts::browserTabs) +
           "\nfunction run() { return String(activateBrowserTab(" + application(browser) + ", " +
           targetOf(browser, tab) + ")); }\n";
}

std::vector<std::string> closeTabsScripts(const Browser& browser,
                                          const std::vector<BrowserTabSnapshot>& tabs) {
    std::vector<std::string> scripts;
    std::string targets;
    int count = 0;
    const auto finish = [&] {
        count = 0;
        if (!targets.empty())
            scripts.push_back(closeScript(browser, std::exchange(targets, {})));
    };
    for (const BrowserTabSnapshot& tab : tabs | std::views::reverse) {
        const std::string target = targetOf(browser, tab);
        if (count == mostTargets || targets.size() + target.size() > mostTargetBytes)
            finish();
        ++count;
        targets.insert(0, targets.empty() ? target : target + ",");
    }
    finish();
    return scripts;
}

} // namespace brinmoor

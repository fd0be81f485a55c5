#include "browser/BrowserTabCleanupService.h"

#include "browser/RunningBrowsers.h"
#include "browser/TabScripts.h"

#include <QPointer>

#include <charconv>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

namespace brinmoor {
namespace {

using Tabs = std::vector<BrowserTabSnapshot>;
using Output = Result<QByteArray, CaptureFailure>;

/// Absent when the run failed or printed something else than a list of tabs.
std::optional<Tabs> tabsOf(const Output& output) {
    if (!output)
        return std::nullopt;
    auto tabs = decodeTabSnapshots({output->constData(), static_cast<std::size_t>(output->size())});
    if (!tabs)
        return std::nullopt;
    return std::move(tabs).value();
}

/// What a script printed as a number; whatever else it printed stands for none.
std::size_t countOf(const QByteArray& output) {
    const QByteArray digits = output.trimmed();
    std::size_t count = 0;
    const auto [end, error] =
        std::from_chars(digits.constData(), digits.constData() + digits.size(), count);
    return error == std::errc() && end == digits.constData() + digits.size() ? count : 0;
}

struct CloseRun {
    const Browser* browser;
    std::string script;
};

std::vector<CloseRun> closeRuns(const Tabs& tabs) {
    std::map<std::string, Tabs> groups;
    for (const BrowserTabSnapshot& tab : tabs)
        groups[tab.browserID].push_back(tab);
    std::vector<CloseRun> runs;
    for (const auto& [browserID, group] : groups)
        if (const Browser* browser = Browser::find(browserID))
            for (std::string& script : closeTabsScripts(*browser, group))
                runs.push_back({browser, std::move(script)});
    return runs;
}

void addOnce(std::vector<std::string>& names, std::string_view name) {
    if (names.empty() || names.back() != name)
        names.emplace_back(name);
}

} // namespace

BrowserTabCleanupService::BrowserTabCleanupService(const Workspace& workspace,
                                                   ScriptRunner& scripts)
    : workspace_(workspace), scripts_(scripts) {}

QCoro::Task<TabCleanupReadResult> BrowserTabCleanupService::readTabs() {
    const QPointer<BrowserTabCleanupService> self(this);
    TabCleanupReadResult result;
    const std::vector<Browser> browsers = runningBrowsers(workspace_);
    result.hadBrowsers = !browsers.empty();
    for (const Browser& browser : browsers) {
        ScriptRun run{readTabsForCleanupScript(browser), ScriptRun::Kind::operation, {}};
        const Output output = co_await scripts_.run(std::move(run));
        if (auto tabs = tabsOf(output))
            std::ranges::move(*tabs, std::back_inserter(result.tabs));
        else
            result.failedBrowsers.emplace_back(browser.name);
        if (!self)
            break;
    }
    co_return result;
}

QCoro::Task<TabCleanupCloseResult>
BrowserTabCleanupService::close(std::vector<BrowserTabSnapshot> tabs) {
    const QPointer<BrowserTabCleanupService> self(this);
    TabCleanupCloseResult result;
    result.requested = tabs.size();
    const std::vector<CloseRun> runs = closeRuns(tabs);
    for (const CloseRun& each : runs) {
        ScriptRun run{each.script, ScriptRun::Kind::operation, {}};
        const Output output = co_await scripts_.run(std::move(run));
        if (output)
            result.closed += countOf(*output);
        else
            addOnce(result.failedBrowsers, each.browser->name);
        if (!self)
            break;
    }
    co_return result;
}

} // namespace brinmoor

#include "browser/TabSearchModel.h"

#include "browser/RunningBrowsers.h"
#include "browser/TabScripts.h"
#include "core/tabs/RankedTabs.h"
#include "core/text/Wording.h"

#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace brinmoor {
namespace {

using text::worded;
using Tabs = std::vector<OpenBrowserTab>;
using Output = Result<QByteArray, CaptureFailure>;

/// Absent when the run failed or printed something else than a list of tabs.
std::optional<Tabs> tabsOf(const Output& output) {
    if (!output)
        return std::nullopt;
    auto tabs = decodeOpenTabs({output->constData(), static_cast<std::size_t>(output->size())});
    if (!tabs)
        return std::nullopt;
    return std::move(tabs).value();
}

std::string joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

} // namespace

TabSearchModel::TabSearchModel(const Workspace& workspace, ScriptRunner& scripts)
    : workspace_(workspace), scripts_(scripts) {}

std::vector<OpenBrowserTab> TabSearchModel::results() const {
    return rankedTabs(tabs_, query_);
}

void TabSearchModel::refresh() {
    const Generation reading = ++generation_;
    setLoading(true);
    setMessage(std::nullopt);
    setSelectedIndex(0);
    read(reading);
}

QCoro::Task<> TabSearchModel::read(Generation reading) {
    const QPointer<TabSearchModel> self(this);
    const auto isOver = [self, reading] { return !self || self->generation_ != reading; };
    const std::vector<Browser> browsers = runningBrowsers(workspace_);
    Tabs collected;
    std::vector<std::string> failed;
    for (const Browser& browser : browsers) {
        if (isOver())
            co_return;
        ScriptRun run{readTabsScript(browser), ScriptRun::Kind::operation, {}};
        const Output output = co_await scripts_.run(std::move(run));
        if (isOver())
            co_return;
        if (auto tabs = tabsOf(output))
            std::ranges::move(*tabs, std::back_inserter(collected));
        else
            failed.emplace_back(browser.name);
        setTabs(collected);
    }
    if (!isOver())
        endReading(browsers, failed);
}

void TabSearchModel::endReading(const std::vector<Browser>& browsers,
                                const std::vector<std::string>& failed) {
    if (browsers.empty())
        setTabs({});
    if (!failed.empty())
        setMessage(worded("Couldn’t read ") + joined(failed) +
                   worded(". Check Automation access in Settings, then refresh."));
    else if (browsers.empty())
        setMessage(worded("Open Safari or a supported Chromium browser to search its tabs."));
    setLoading(false);
}

void TabSearchModel::move(int delta) {
    const int last = static_cast<int>(results().size()) - 1;
    const auto wanted = static_cast<long long>(selectedIndex_) + delta;
    setSelectedIndex(static_cast<int>(std::max(0LL, std::min<long long>(wanted, last))));
}

void TabSearchModel::activate(const OpenBrowserTab& tab) {
    const Browser* browser = Browser::find(tab.browserID);
    if (switching_ || browser == nullptr)
        return;
    setSwitching(true);
    switchBy(activateTabScript(*browser, tab));
}

QCoro::Task<> TabSearchModel::switchBy(std::string script) {
    const QPointer<TabSearchModel> self(this);
    ScriptRun run{std::move(script), ScriptRun::Kind::operation, {}};
    const Output output = co_await scripts_.run(std::move(run));
    if (!self)
        co_return;
    const bool isThere = output.ok() && output->trimmed() == "true";
    if (isThere && close)
        close();
    if (!self)
        co_return;
    if (!isThere)
        setMessage(worded(
            output.ok() ? "That tab moved or closed. Refresh to see what’s open now."
                        : "Couldn’t switch tabs. Check browser Automation access and try again."));
    setSwitching(false);
}

void TabSearchModel::saveTab(const OpenBrowserTab& tab) {
    if (saving_ || !save)
        return;
    setSaving(true);
    saveBy(tab);
}

QCoro::Task<> TabSearchModel::saveBy(OpenBrowserTab tab) {
    const QPointer<TabSearchModel> self(this);
    const QCoro::Task<bool> task = save(std::move(tab));
    const bool saved = co_await task;
    if (!self)
        co_return;
    setMessage(worded(saved
                          ? "Saved to your library."
                          : "Couldn’t save this tab. Check the Brinmoor notification for details."),
               saved ? Tone::plain : Tone::failure);
    setSaving(false);
}

void TabSearchModel::setQuery(std::string query) {
    if (query_ == query)
        return;
    query_ = std::move(query);
    Q_EMIT queryChanged();
    setSelectedIndex(0);
}

void TabSearchModel::setTabs(std::vector<OpenBrowserTab> tabs) {
    if (tabs_ == tabs)
        return;
    tabs_ = std::move(tabs);
    Q_EMIT tabsChanged();
    if (selectedIndex_ > 0)
        move(0);
}

void TabSearchModel::setLoading(bool loading) {
    if (std::exchange(loading_, loading) != loading)
        Q_EMIT loadingChanged();
}

void TabSearchModel::setSwitching(bool switching) {
    if (std::exchange(switching_, switching) != switching)
        Q_EMIT switchingChanged();
}

void TabSearchModel::setSaving(bool saving) {
    if (std::exchange(saving_, saving) != saving)
        Q_EMIT savingChanged();
}

void TabSearchModel::setMessage(std::optional<std::string> message, Tone tone) {
    if (message_ == message)
        return;
    messageIsFailure_ = message && tone == Tone::failure;
    message_ = std::move(message);
    Q_EMIT messageChanged();
}

void TabSearchModel::setSelectedIndex(int index) {
    if (std::exchange(selectedIndex_, index) != index)
        Q_EMIT selectedIndexChanged();
}

} // namespace brinmoor

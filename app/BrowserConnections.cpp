#include "app/BrowserConnections.h"

#include "browser/Browser.h"
#include "browser/TabScripts.h"
#include "platform/BrowserSetup.h"
#include "platform/Workspace.h"

#include <QPointer>

#include <algorithm>
#include <set>
#include <utility>

namespace brinmoor {
namespace {

using State = BrowserConnections::State;
using Identifiers = std::set<std::string, std::less<>>;

Identifiers runningIdentifiers(const Workspace& workspace) {
    Identifiers running;
    for (const RunningApplication& application : workspace.runningApplications())
        if (application.bundleIdentifier && !application.isTerminated)
            running.insert(*application.bundleIdentifier);
    return running;
}

/// A browser that was started from a place where nobody looks is there all the same.
void addRunning(std::vector<InstalledBrowser>& browsers, const Identifiers& running) {
    for (const Browser& browser : Browser::supported()) {
        const bool known =
            std::ranges::any_of(browsers, [&](const auto& each) { return each.id == browser.id; });
        if (!known && running.contains(browser.id))
            browsers.push_back({std::string(browser.id), std::string(browser.name)});
    }
}

State stateBeforeAsking(const InstalledBrowser& browser, const Identifiers& running) {
    if (Browser::find(browser.id) == nullptr)
        return State::unsupported;
    if (running.contains(browser.id))
        return State::checking;
    return browser.sandboxed ? State::sandboxed : State::notRunning;
}

State stateAfter(const Result<QByteArray, CaptureFailure>& answer) {
    if (answer)
        return State::connected;
    const auto* error = std::get_if<CaptureError>(&answer.error());
    return error != nullptr && error->cause == CaptureError::Cause::permission ? State::notAdded
                                                                               : State::noAnswer;
}

auto orderOf(const BrowserConnections::Entry& entry) {
    const auto catalogue = Browser::supported();
    const auto place = std::ranges::find(catalogue, entry.id, &Browser::id) - catalogue.begin();
    return std::pair(place, entry.name);
}

} // namespace

BrowserConnections::BrowserConnections(BrowserSetup& setup, const Workspace& workspace,
                                       ScriptRunner& scripts)
    : setup_(setup), workspace_(workspace), scripts_(scripts) {}

BrowserConnections::~BrowserConnections() = default;

std::string BrowserConnections::extensionFolder() const {
    return setup_.extensionFolder();
}

void BrowserConnections::check() {
    if (isChecking())
        return;
    setup_.tellBrowsers();
    listBrowsers();
    std::vector<std::string> asked;
    for (const Entry& entry : entries_)
        if (entry.state == State::checking)
            asked.push_back(entry.id);
    running_ = int(asked.size());
    Q_EMIT changed();
    for (const std::string& browserID : asked)
        ask(browserID);
}

void BrowserConnections::listBrowsers() {
    auto browsers = setup_.installedBrowsers();
    const auto running = runningIdentifiers(workspace_);
    addRunning(browsers, running);
    entries_.clear();
    for (const InstalledBrowser& browser : browsers) {
        const Browser* known = Browser::find(browser.id);
        entries_.push_back({browser.id, known ? std::string(known->name) : browser.name,
                            stateBeforeAsking(browser, running)});
    }
    std::ranges::sort(entries_, {}, orderOf);
}

QCoro::Task<> BrowserConnections::ask(std::string browserID) {
    const QPointer<BrowserConnections> self(this);
    const Browser* browser = Browser::find(browserID);
    ScriptRun question{checkAccessScript(*browser), ScriptRun::Kind::pageCapture,
                       std::string(browser->name)};
    const auto asking = scripts_.run(std::move(question));
    const auto answer = co_await asking;
    if (self)
        settle(browserID, stateAfter(answer));
}

void BrowserConnections::settle(const std::string& browserID, State state) {
    const auto entry = std::ranges::find(entries_, browserID, &Entry::id);
    const auto installed = setup_.installedBrowsers();
    const bool sandboxed = std::ranges::any_of(
        installed, [&](const auto& each) { return each.id == browserID && each.sandboxed; });
    entry->state = state == State::notAdded && sandboxed ? State::sandboxed : state;
    --running_;
    Q_EMIT changed();
}

} // namespace brinmoor

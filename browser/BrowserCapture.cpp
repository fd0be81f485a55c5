#include "browser/BrowserCapture.h"

#include "core/icons/SiteIcon.h"
#include "core/library/Library.h"
#include "core/links/LinkTitle.h"
#include "core/tabs/BrowserTarget.h"
#include "core/tabs/TabEntry.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/Preferences.h"

#include <QPointer>

#include <algorithm>
#include <set>

namespace brinmoor {
namespace {

constexpr std::string_view lastBrowserKey = "lastCaptureBrowser";

std::set<std::string> supportedIdentifiers() {
    std::set<std::string> identifiers;
    for (const Browser& browser : Browser::supported())
        identifiers.emplace(browser.id);
    return identifiers;
}

/// Fails when the application in front is a browser that can't be read: that is said even when
/// another browser runs behind it.
std::optional<CaptureError> unsupportedFront(const std::optional<RunningApplication>& front,
                                             const std::string& own) {
    if (!front || !front->bundleIdentifier)
        return std::nullopt;
    const std::string& id = *front->bundleIdentifier;
    if (id == own || Browser::find(id) != nullptr || !isKnownUnsupported(id))
        return std::nullopt;
    return CaptureError{CaptureError::Cause::unsupported,
                        front->localizedName.value_or(text::worded("this browser"))};
}

std::vector<RunningApplication> alive(std::vector<RunningApplication> applications) {
    std::erase_if(applications, [](const auto& application) { return application.isTerminated; });
    return applications;
}

std::set<std::string> identifiers(const std::vector<RunningApplication>& applications) {
    std::set<std::string> found;
    for (const auto& application : applications)
        if (application.bundleIdentifier)
            found.insert(*application.bundleIdentifier);
    return found;
}

SavedLink linkOf(const TabEntry& entry, const WebAddress& address, const Browser& browser,
                 Clock& clock) {
    SavedLink link(entry.url, LinkTitle::best(entry.url, entry.title, entry.metadata),
                   std::string(browser.name), "Inbox", clock.newUuid(), clock.now());
    const auto icon = entry.metadata.find("iconURL");
    if (icon != entry.metadata.end())
        if (const auto resolved = SiteIcon::resolve(icon->second, address))
            link.iconURL = resolved->string();
    return link;
}

} // namespace

BrowserCapture::BrowserCapture(Workspace& workspace, Preferences& preferences, Clock& clock,
                               ScriptRunner& scripts)
    : workspace_(workspace), preferences_(preferences), clock_(clock), scripts_(scripts),
      lastBrowserID_(preferences.text(lastBrowserKey)) {
    remember(workspace_.frontmostApplication());
    observation_ =
        workspace_.onActivation([this](const auto& application) { remember(application); });
}

BrowserCapture::~BrowserCapture() = default;

void BrowserCapture::remember(const std::optional<RunningApplication>& application) {
    if (application && application->bundleIdentifier &&
        Browser::find(*application->bundleIdentifier) != nullptr)
        rememberBrowser(*application->bundleIdentifier);
}

void BrowserCapture::rememberBrowser(std::string_view id) {
    lastBrowserID_ = std::string(id);
    // Another copy of the program may have stored another one meanwhile: the latest choice counts.
    if (preferences_.text(lastBrowserKey) != id)
        preferences_.set(lastBrowserKey, *lastBrowserID_);
}

Result<Browser, CaptureError> BrowserCapture::target() {
    const auto front = workspace_.frontmostApplication();
    if (auto refused = unsupportedFront(front, workspace_.ownBundleIdentifier()))
        return failure(std::move(*refused));

    const Applications running = alive(workspace_.runningApplications());
    const auto supported = supportedIdentifiers();
    const auto runningIDs = identifiers(running);
    const auto frontID = front ? front->bundleIdentifier : std::nullopt;
    auto chosen = BrowserTarget::resolve(frontID, supported, runningIDs, lastBrowserID_, {});
    if (!chosen)
        chosen = BrowserTarget::resolve(frontID, supported, runningIDs, lastBrowserID_,
                                        visibleOwners(running));
    const Browser* browser = chosen ? Browser::find(*chosen) : nullptr;
    if (browser == nullptr)
        return failure(CaptureError{CaptureError::Cause::noBrowser, {}});
    rememberBrowser(browser->id);
    return *browser;
}

std::vector<std::string> BrowserCapture::visibleOwners(const Applications& running) const {
    std::vector<std::string> owners;
    for (const VisibleWindow& window :
         workspace_.visibleWindows().value_or(std::vector<VisibleWindow>())) {
        if (window.layer != 0 || !window.ownerProcess)
            continue;
        const auto owner = std::ranges::find(running, *window.ownerProcess,
                                             &RunningApplication::processIdentifier);
        if (owner != running.end() && owner->bundleIdentifier)
            owners.push_back(*owner->bundleIdentifier);
    }
    return owners;
}

std::vector<std::int32_t> BrowserCapture::processesOf(std::string_view browserID) const {
    std::vector<std::int32_t> processes;
    for (const auto& application : workspace_.runningApplications())
        if (application.bundleIdentifier == browserID && !application.isTerminated)
            processes.push_back(application.processIdentifier);
    return processes;
}

void BrowserCapture::capture(TabRange range, ClosePreparation preparation, Completion completion) {
    auto chosen = target();
    if (!chosen) {
        completion(failure(CaptureFailure(chosen.error())));
        return;
    }
    const auto processes = processesOf(chosen->id);
    const std::int32_t process = processes.empty() ? 0 : processes.front();
    read(*chosen, captureScript(*chosen, range, preparation, process), std::move(completion));
}

QCoro::Task<> BrowserCapture::read(Browser browser, std::string script, Completion completion) {
    const QPointer<BrowserCapture> self(this);
    ScriptRun run{std::move(script), ScriptRun::Kind::pageCapture, std::string(browser.name)};
    const auto output = co_await scripts_.run(std::move(run));
    if (!self)
        co_return;
    if (!output)
        completion(failure(output.error()));
    else
        completion(captured(browser, *output));
}

Result<CapturedTabs, CaptureFailure> BrowserCapture::captured(const Browser& browser,
                                                              const QByteArray& output) {
    const std::string_view bytes(output.constData(), static_cast<std::size_t>(output.size()));
    auto entries = decodeTabEntries(bytes);
    if (!entries)
        return failure(CaptureFailure(OtherFailure{"The browser’s answer could not be read."}));
    CapturedTabs tabs;
    for (const TabEntry& entry : *entries)
        if (const auto address = Library::validatedURL(entry.url))
            tabs.links.push_back(linkOf(entry, *address, browser, clock_));
    if (tabs.links.empty())
        return failure(CaptureFailure(CaptureError{CaptureError::Cause::noTabs, {}}));
    tabs.closeTarget = entries->front().closeTarget;
    return tabs;
}

QCoro::Task<bool> BrowserCapture::closeSavedTab(CapturedTabTarget target) {
    const Browser* browser = Browser::find(target.browserID);
    if (browser == nullptr)
        co_return false;
    const auto processes = processesOf(browser->id);
    if (std::ranges::find(processes, target.processID) == processes.end())
        co_return false;
    ScriptRun run{closeScript(*browser, target), ScriptRun::Kind::operation, {}};
    const auto output = co_await scripts_.run(std::move(run));
    co_return output.ok() && output->trimmed() == "true";
}

} // namespace brinmoor

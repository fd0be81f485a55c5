#include "app/TabCleanup.h"

#include "browser/BrowserTabCleanupService.h"
#include "core/tabs/TabCleanupPlanner.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/Preferences.h"

#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace brinmoor {
namespace {

using text::worded;

std::string joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

} // namespace

TabCleanup::TabCleanup(const Workspace& workspace, ScriptRunner& scripts, Preferences& preferences,
                       Clock& clock)
    : preferences_(preferences), clock_(clock),
      tabCleanupService_(std::make_unique<BrowserTabCleanupService>(workspace, scripts)) {
    SavedSettings saved = SavedSettings::read(preferences_);
    tabCleanupEnabled_ = saved.tabCleanupEnabled;
    tabCleanupApproval_ = saved.tabCleanupApproval;
    tabCleanupDomains_ = std::move(saved.tabCleanupDomains);
}

TabCleanup::~TabCleanup() = default;

void TabCleanup::mark(Step step) {
    const bool before = isCleaningTabs();
    running_ += step == Step::begins ? 1 : -1;
    if (isCleaningTabs() != before)
        Q_EMIT isCleaningTabsChanged();
}

void TabCleanup::closeDuplicateTabs() {
    if (isCleaningTabs())
        return;
    mark(Step::begins);
    cleanUpDuplicates();
}

QCoro::Task<> TabCleanup::cleanUpDuplicates() {
    const QPointer<TabCleanup> self(this);
    const TabCleanupReadResult reading = co_await tabCleanupService_->readTabs();
    if (!self)
        co_return;
    auto candidates = TabCleanupPlanner::duplicateAndEmptyCandidates(reading.tabs);
    if (!candidates.empty()) {
        close(std::move(candidates), "Duplicate tabs cleaned up");
        co_return;
    }
    mark(Step::ends);
    sayNothingToClose(reading, "Tabs already tidy", "No duplicate or empty tabs found.");
}

void TabCleanup::runTabCleanup() {
    if (!tabCleanupEnabled_) {
        say("Tab Cleanup is off",
            worded("Turn it on in Settings before running a website cleanup."), Tone::failure);
        return;
    }
    if (tabCleanupDomains_.empty()) {
        say("Choose cleanup websites",
            worded("Add at least one website in Settings before running cleanup."), Tone::failure);
        return;
    }
    if (isCleaningTabs())
        return;
    mark(Step::begins);
    cleanUpWebsites();
}

QCoro::Task<> TabCleanup::cleanUpWebsites() {
    const QPointer<TabCleanup> self(this);
    const TabCleanupReadResult reading = co_await tabCleanupService_->readTabs();
    if (!self)
        co_return;
    cleanupOpenTabs_ = reading.tabs;
    Q_EMIT cleanupOpenTabsChanged();
    auto candidates = TabCleanupPlanner::domainCandidates(reading.tabs, tabCleanupDomains_);
    if (!candidates.empty() && tabCleanupApproval_ == TabCleanupApproval::immediate) {
        close(std::move(candidates), "Tabs cleaned up");
        co_return;
    }
    mark(Step::ends);
    if (candidates.empty())
        sayNothingToClose(reading, "Nothing to clean up",
                          "No open tabs match your cleanup websites.");
    else
        review(std::move(candidates));
}

/// Ends the run that was begun for it.
QCoro::Task<> TabCleanup::close(std::vector<BrowserTabSnapshot> tabs, std::string_view title) {
    const QPointer<TabCleanup> self(this);
    const TabCleanupCloseResult result = co_await tabCleanupService_->close(std::move(tabs));
    if (!self)
        co_return;
    mark(Step::ends);
    notifyCleanupResult(result.requested, result.closed, result.failedBrowsers, title);
}

void TabCleanup::review(std::vector<BrowserTabSnapshot> candidates) {
    TabCleanupDraft draft{.id = clock_.newUuid(), .tabs = std::move(candidates), .selected = {}};
    for (const BrowserTabSnapshot& tab : draft.tabs)
        draft.selected.insert(tab.id());
    setReview(draft);
    if (showCleanupReview)
        showCleanupReview(draft);
}

void TabCleanup::setReview(std::optional<TabCleanupDraft> review) {
    cleanupReview_ = std::move(review);
    Q_EMIT cleanupReviewChanged();
}

void TabCleanup::updateCleanupSelection(std::set<std::string> selected) {
    if (!cleanupReview_)
        return;
    cleanupReview_->selected = std::move(selected);
    Q_EMIT cleanupReviewChanged();
}

void TabCleanup::confirmCleanupReview() {
    if (!cleanupReview_)
        return;
    std::vector<BrowserTabSnapshot> chosen;
    std::ranges::copy_if(
        cleanupReview_->tabs, std::back_inserter(chosen),
        [&](const BrowserTabSnapshot& tab) { return cleanupReview_->selected.contains(tab.id()); });
    if (chosen.empty())
        return;
    setReview(std::nullopt);
    mark(Step::begins);
    close(std::move(chosen), "Tabs cleaned up");
}

void TabCleanup::discardCleanupReview() {
    if (cleanupReview_)
        setReview(std::nullopt);
}

void TabCleanup::notifyCleanupResult(std::size_t requested, std::size_t closed,
                                     const std::vector<std::string>& failures,
                                     std::string_view title) {
    if (closed == 0) {
        say("No tabs closed", worded("The tabs moved, changed, or couldn’t be closed safely."),
            Tone::failure);
        return;
    }
    std::string message = std::to_string(closed);
    if (requested > closed)
        message += worded(" closed · ") + std::to_string(requested - closed) +
                   worded(" left open because they changed or moved.");
    else
        message += worded(closed == 1 ? " tab closed." : " tabs closed.");
    say(title, std::move(message), failures.empty() ? Tone::plain : Tone::failure);
}

void TabCleanup::sayNothingToClose(const TabCleanupReadResult& reading, std::string_view title,
                                   std::string_view message) {
    if (!reading.failedBrowsers.empty())
        say("Couldn’t inspect every browser",
            worded("Check Automation access for ") + joined(reading.failedBrowsers) +
                worded(", then try again."),
            Tone::failure);
    else if (reading.hadBrowsers)
        say(title, worded(message), Tone::plain);
    else
        say(title, worded("Open a supported browser, then try again."), Tone::failure);
}

void TabCleanup::say(std::string_view title, std::string message, Tone tone) {
    if (notify)
        notify({.id = clock_.newUuid(),
                .title = worded(title),
                .message = std::move(message),
                .isError = tone == Tone::failure,
                .clipboardURL = {}});
}

void TabCleanup::setTabCleanupEnabled(bool on) {
    tabCleanupEnabled_ = on;
    preferences_.set("tabCleanupEnabled", on);
    Q_EMIT preferencesChanged();
}

void TabCleanup::setTabCleanupApproval(TabCleanupApproval approval) {
    tabCleanupApproval_ = approval;
    preferences_.set("tabCleanupApproval",
                     std::string(approval == TabCleanupApproval::immediate ? "immediate" : "ask"));
    Q_EMIT preferencesChanged();
}

} // namespace brinmoor

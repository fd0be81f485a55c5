// From a key press to a saved link and a notice.

#include "app/AppModel.h"

#include "app/TabCleanup.h"
#include "core/links/LinkTitle.h"
#include "core/tags/LinkAutoTagging.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"

#include <QPointer>

#include <algorithm>
#include <unordered_map>

namespace brinmoor {
namespace {

using text::worded;

constexpr int suggestedTags = 3;
constexpr std::string_view ready = "Ready in your library whenever you need it.";

bool readsWholeWindow(CaptureAction action) {
    return action == CaptureAction::selected || action == CaptureAction::window;
}

bool mayCloseTab(CaptureAction action) {
    return action == CaptureAction::quick || action == CaptureAction::note;
}

/// The one case in which a repeated capture changes a stored link: a fresh icon, and a real title
/// in place of one that says nothing.
void refresh(SavedLink& stored, const SavedLink& fresh) {
    if (fresh.iconURL)
        stored.iconURL = fresh.iconURL;
    if (LinkTitle::isGeneric(stored.title) && !LinkTitle::isGeneric(fresh.title))
        stored.title = fresh.title;
}

} // namespace

void AppModel::capture(CaptureAction action) {
    if (action == CaptureAction::search) {
        if (showTabSearch)
            showTabSearch();
        return;
    }
    if (action == CaptureAction::duplicates) {
        tabCleanup_->closeDuplicateTabs();
        return;
    }
    if (draft_) {
        if (showCaptureEditor)
            showCaptureEditor(*draft_);
        return;
    }
    if (isCapturing_)
        return;
    setCapturing(true);
    const bool closeAfter = mayCloseTab(action) && closeAfterQuickSave_;
    captureService_->capture(
        readsWholeWindow(action) ? TabRange::wholeWindow : TabRange::current,
        closeAfter ? ClosePreparation::identifyTabs : ClosePreparation::none,
        [this, action, closeAfter](Result<CapturedTabs, CaptureFailure> result) {
            if (result)
                captured(action, std::move(result).value(), closeAfter);
            else
                captureFailed(result.error());
        });
}

void AppModel::setCapturing(bool capturing) {
    isCapturing_ = capturing;
    Q_EMIT isCapturingChanged();
}

void AppModel::captureFailed(const CaptureFailure& failed) {
    if (const auto* known = std::get_if<CaptureError>(&failed))
        notify(known->notice(clock_.newUuid()));
    else
        say("Couldn’t capture this tab", "Try again with a web page open in your browser.",
            Tone::failure);
    setCapturing(false);
}

void AppModel::captured(CaptureAction action, CapturedTabs tabs, bool closeAfter) {
    if (action == CaptureAction::note && !tabs.links.empty()) {
        beginNote(std::move(tabs.links.front()), std::move(tabs.closeTarget));
        setCapturing(false);
        return;
    }
    if (action == CaptureAction::selected) {
        beginTabSelection(std::move(tabs.links));
        setCapturing(false);
        return;
    }
    const auto tagging = action == CaptureAction::quick ? Tagging::suggested : Tagging::none;
    if (saveCaptured(std::move(tabs.links), tagging) && closeAfter)
        closeAfterCapture(std::move(tabs.closeTarget));
    else
        setCapturing(false);
}

QCoro::Task<> AppModel::closeAfterCapture(std::optional<CapturedTabTarget> target) {
    const QPointer<AppModel> self(this);
    bool closed = false;
    if (target)
        closed = co_await captureService_->closeSavedTab(*target);
    if (!self)
        co_return;
    if (closed)
        say("Saved & closed", ready);
    else
        say("Saved · tab left open",
            "The tab changed or couldn’t be closed safely. Your link is saved.");
    setCapturing(false);
}

const SavedLink* AppModel::storedLink(std::string_view url) const {
    const std::string identity = Library::identity(url);
    const auto stored = std::ranges::find_if(library_->links, [&](const SavedLink& link) {
        return Library::identity(link.url) == identity;
    });
    return stored == library_->links.end() ? nullptr : &*stored;
}

SavedLink AppModel::withSuggestedTags(const SavedLink& link) const {
    return LinkAutoTagging::applyingSuggestions(link, library_->links, suggestedTags);
}

bool AppModel::saveCaptured(std::vector<SavedLink> links, Tagging tagging) {
    if (links.size() == 1 && tagging == Tagging::suggested && autoTaggingEnabled_ &&
        storedLink(links.front().url) == nullptr)
        links.front() = withSuggestedTags(links.front());

    Library next = *library_;
    refreshStored(next, links);
    const std::size_t added = next.insert(std::move(links));
    if (!commit(std::move(next), Feedback::capture,
                UndoTitle{added == 1 ? "Save Link" : "Save Links"}))
        return false;
    count(UsageEvent::linksSaved, added);
    if (added == 0)
        say("Already saved", "Already in your library. No duplicate added.");
    else if (added == 1)
        say("Tab saved", ready);
    else
        notify({.id = clock_.newUuid(),
                .title = std::to_string(added) + worded(" tabs saved"),
                .message = worded(ready),
                .clipboardURL = {}});
    return true;
}

void AppModel::refreshStored(Library& library, const std::vector<SavedLink>& captured) {
    std::unordered_map<std::string, SavedLink*> storedLinks;
    for (const SavedLink& fresh : captured)
        storedLinks.emplace(Library::identity(fresh.url), nullptr);
    for (SavedLink& stored : library.links) {
        const auto place = storedLinks.find(Library::identity(stored.url));
        if (place != storedLinks.end() && place->second == nullptr)
            place->second = &stored;
    }
    for (const SavedLink& fresh : captured)
        if (SavedLink* stored = storedLinks[Library::identity(fresh.url)])
            refresh(*stored, fresh);
}

} // namespace brinmoor

// Links that wait in a panel before they are saved, and links typed by hand.

#include "app/AppModel.h"

#include "core/links/LinkTitle.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"

#include <QPointer>

#include <algorithm>

namespace brinmoor {

using text::worded;

void AppModel::beginNote(SavedLink link, std::optional<CapturedTabTarget> closeTarget) {
    if (const SavedLink* stored = storedLink(link.url)) {
        SavedLink known = *stored;
        if (link.iconURL)
            known.iconURL = link.iconURL;
        if (LinkTitle::isGeneric(known.title))
            known.title = link.title;
        link = std::move(known);
    }
    beginDraft(std::move(link), CaptureAction::note, std::move(closeTarget));
}

void AppModel::beginDraft(SavedLink link, CaptureAction action,
                          std::optional<CapturedTabTarget> closeTarget) {
    if (!draft_) {
        if (action == CaptureAction::note && autoTaggingEnabled_ && storedLink(link.url) == nullptr)
            link = withSuggestedTags(link);
        draft_ = CaptureDraft{std::move(link), action, std::move(closeTarget)};
        Q_EMIT draftChanged();
    }
    if (showCaptureEditor)
        showCaptureEditor(*draft_);
}

void AppModel::discardDraft() {
    if (!draft_)
        return;
    draft_.reset();
    Q_EMIT draftChanged();
}

void AppModel::endDraft() {
    discardDraft();
    if (closeCaptureEditor)
        closeCaptureEditor();
}

QCoro::Task<bool> AppModel::saveDraft(SavedLink link) {
    const QPointer<AppModel> self(this);
    const auto closeTarget =
        draft_ && draft_->link.id == link.id ? draft_->closeTarget : std::nullopt;
    const bool isNew = storedLink(link.url) == nullptr;
    Library next = *library_;
    if (!next.saveAnnotated(link)) {
        say("Couldn’t save this link", "The web address is invalid.", Tone::failure);
        co_return false;
    }
    const UndoTitle undo{isNew ? "Save Link" : "Edit Link"};
    if (!commit(std::move(next), Feedback::capture, undo))
        co_return false;
    countSaved(link, isNew);
    endDraft();
    if (!closeTarget) {
        say("Link saved", "Your note and tags are safely in your library.");
        co_return true;
    }
    const bool closed = co_await captureService_->closeSavedTab(*closeTarget);
    if (!self)
        co_return true;
    if (closed)
        say("Saved & closed", "Your note and tags are safely in your library.");
    else
        say("Saved · tab left open",
            "The tab changed or couldn’t be closed safely. Your note and tags are saved.");
    co_return true;
}

void AppModel::beginTabSelection(std::vector<SavedLink> links) {
    TabSelectionDraft draft{.id = clock_.newUuid(), .links = std::move(links), .selected = {}};
    for (const SavedLink& link : draft.links)
        draft.selected.insert(link.id);
    tabSelection_ = std::move(draft);
    Q_EMIT tabSelectionChanged();
    if (showTabSelection)
        showTabSelection(*tabSelection_);
}

void AppModel::updateTabSelection(UuidSet selected) {
    if (!tabSelection_)
        return;
    tabSelection_->selected = std::move(selected);
    Q_EMIT tabSelectionChanged();
}

void AppModel::discardTabSelection() {
    if (!tabSelection_)
        return;
    tabSelection_.reset();
    Q_EMIT tabSelectionChanged();
}

void AppModel::saveTabSelection() {
    if (!tabSelection_)
        return;
    std::vector<SavedLink> chosen;
    std::ranges::copy_if(
        tabSelection_->links, std::back_inserter(chosen),
        [&](const SavedLink& link) { return tabSelection_->selected.contains(link.id); });
    if (chosen.empty())
        return;
    discardTabSelection();
    if (closeTabSelection)
        closeTabSelection();
    saveCaptured(std::move(chosen), Tagging::none);
}

QCoro::Task<bool> AppModel::add(std::string url, std::string title, std::string collection,
                                std::string note, std::vector<std::string> tags) {
    const auto address = Library::validatedURL(url);
    if (!address) {
        setError(worded("Enter a complete web address beginning with https:// or http://."));
        co_return false;
    }
    SavedLink link(address->string(), std::move(title), "Manual", std::move(collection),
                   clock_.newUuid(), clock_.now());
    link.note = std::move(note);
    link.tags = SavedLink::normalizedTags(tags);
    if (storedLink(link.url) != nullptr) {
        say("Already saved", "This link is already in your library. No duplicate added.");
        co_return true;
    }
    Library next = *library_;
    std::vector<SavedLink> batch{std::move(link)};
    const std::size_t added = next.insert(batch);
    const UndoTitle undo{"Save Link"};
    if (!commit(std::move(next), Feedback::error, undo))
        co_return false;
    countSaved(batch.front(), added > 0);
    say("Brinmoor", added > 0 ? "Link saved" : "Already tucked away in your hollow");
    co_return true;
}

} // namespace brinmoor

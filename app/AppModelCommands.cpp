// The commands of the library screens that change the library, and what they put on the screen.

#include "app/AppModel.h"

#include "core/search/LinkSearch.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/Pasteboard.h"
#include "platform/SystemOpener.h"

#include <algorithm>

namespace brinmoor {

using text::worded;

bool AppModel::setArchived(bool archived, const UuidSet& ids) {
    Library next = *library_;
    UuidSet changed = next.setArchived(archived, ids);
    if (changed.empty())
        return false;
    const std::string title =
        std::string(archived ? "Archive " : "Restore ") + (changed.size() == 1 ? "Link" : "Links");
    if (!commit(std::move(next), Feedback::error,
                UndoTitle{.words = title, .clearsArchiveUndo = true}))
        return false;
    setSelectedID(std::nullopt);
    setSwipedLinkID(std::nullopt);
    if (archived)
        count(UsageEvent::linksArchived, changed.size());
    setArchiveUndo(ArchiveUndo{std::move(changed), archived});
    return true;
}

void AppModel::emptyArchive(const UuidSet& ids) {
    Library next = *library_;
    const std::size_t removed = next.deleteArchived(ids);
    if (removed == 0 || !commit(std::move(next), Feedback::error, std::nullopt))
        return;
    setArchiveUndo(std::nullopt);
    setSelectedID(std::nullopt);
    setSwipedLinkID(std::nullopt);
    notify({.id = clock_.newUuid(),
            .title = worded("Archive emptied"),
            .message =
                std::to_string(removed) + " " +
                worded(removed == 1 ? "link permanently deleted." : "links permanently deleted."),
            .clipboardURL = {}});
}

void AppModel::deleteLink(const SavedLink& link) {
    Library next = *library_;
    std::erase_if(next.links, [&](const SavedLink& each) { return each.id == link.id; });
    if (!commit(std::move(next), Feedback::error, UndoTitle{.words = "Delete Link"}))
        return;
    setSelectedID(std::nullopt);
    say("Brinmoor", "Link deleted");
}

bool AppModel::renameTag(const std::string& old, const std::string& to) {
    Library next = *library_;
    const std::size_t links = next.renameTag(old, to);
    if (links == 0 || !commit(std::move(next), Feedback::error, UndoTitle{.words = "Rename Tag"}))
        return false;
    if (LinkSearch::folded(view_.selectedTag.value_or("")) == LinkSearch::folded(old)) {
        LibraryFilter view = view_;
        view.selectedTag = SavedLink::normalizedTags({to}).front();
        setView(std::move(view));
    }
    tagChanged(links, "Tag updated on 1 link", "Tag updated on (changed) links");
    return true;
}

bool AppModel::deleteTag(const std::string& tag) {
    Library next = *library_;
    const std::size_t links = next.deleteTag(tag);
    if (links == 0 || !commit(std::move(next), Feedback::error, UndoTitle{.words = "Remove Tag"}))
        return false;
    if (LinkSearch::folded(view_.selectedTag.value_or("")) == LinkSearch::folded(tag)) {
        LibraryFilter view = view_;
        view.selectedTag.reset();
        setView(std::move(view));
    }
    tagChanged(links, "Tag removed from 1 link", "Tag removed from (changed) links");
    return true;
}

void AppModel::tagChanged(std::size_t links, std::string_view oneLink, std::string_view moreLinks) {
    say("Brinmoor", links == 1 ? oneLink : moreLinks);
}

template <class Change>
bool AppModel::changeLink(Uuid id, std::string_view undoTitle, Change change) {
    Library next = *library_;
    const auto link = std::ranges::find(next.links, id, &SavedLink::id);
    if (link == next.links.end())
        return false;
    change(*link);
    return commit(std::move(next), Feedback::error, UndoTitle{.words = undoTitle});
}

QCoro::Task<bool> AppModel::update(SavedLink link) {
    bool noteChanged = false;
    bool tagsChanged = false;
    const bool done = changeLink(link.id, "Edit Link", [&](SavedLink& stored) {
        auto tags = SavedLink::normalizedTags(link.tags);
        noteChanged = stored.note != link.note;
        tagsChanged = stored.tags != tags;
        stored.title = link.title;
        stored.note = link.note;
        stored.tags = std::move(tags);
        stored.isFavorite = link.isFavorite;
    });
    if (done && noteChanged)
        count(UsageEvent::noteSaved);
    if (done && tagsChanged)
        count(UsageEvent::tagsSaved);
    co_return done;
}

QCoro::Task<bool> AppModel::toggleFavorite(Uuid id) {
    const auto stored = std::ranges::find(library_->links, id, &SavedLink::id);
    const bool wasFavorite = stored != library_->links.end() && stored->isFavorite;
    co_return changeLink(id, wasFavorite ? "Remove Favorite" : "Favorite Link",
                         [&](SavedLink& link) { link.isFavorite = !wasFavorite; });
}

QCoro::Task<bool> AppModel::labelImportance(Uuid id, std::optional<LinkImportance> importance) {
    const bool done =
        changeLink(id, "Change Importance", [&](SavedLink& link) { link.importance = importance; });
    if (done && importance)
        count(UsageEvent::importanceLabeled);
    co_return done;
}

void AppModel::open(const SavedLink& link) {
    const auto address = Library::validatedURL(link.url);
    if (!address) {
        setError(worded("This link is not a valid web address."));
        return;
    }
    if (opener_.openAddress(address->string()))
        count(UsageEvent::linkOpened);
}

void AppModel::copy(const SavedLink& link) {
    pasteboard_.setText(link.url);
    count(UsageEvent::linkCopied);
    say("Brinmoor", "Link copied");
}

void AppModel::copyText(const std::string& text) {
    pasteboard_.setText(text);
}

void AppModel::share(const SavedLink& link) {
    setSwipedLinkID(std::nullopt);
    sharingLink_ = link;
    Q_EMIT sheetsChanged();
}

std::optional<std::string> AppModel::copiedText() const {
    return pasteboard_.text();
}

bool AppModel::composeMail(const std::string& subject, const std::string& body) {
    return opener_.composeMail(subject, body);
}

void AppModel::revealLibrary() {
    opener_.revealFile(file_.path());
}

} // namespace brinmoor

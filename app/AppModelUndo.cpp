// The two undo records, each one level deep: of the last archiving or restoring, and of the last
// change of the library. There is no redo.

#include "app/AppModel.h"

#include "core/text/Wording.h"
#include "platform/Clock.h"

namespace brinmoor {

using text::worded;

void AppModel::setArchiveUndo(std::optional<ArchiveUndo> undo) {
    if (archiveUndo_ == undo)
        return;
    archiveUndo_ = std::move(undo);
    Q_EMIT archiveUndoChanged();
}

void AppModel::dismissArchiveUndo() {
    setArchiveUndo(std::nullopt);
}

void AppModel::undoArchive() {
    if (!archiveUndo_)
        return;
    Library next = *library_;
    next.setArchived(!archiveUndo_->archived, archiveUndo_->ids);
    if (!commit(std::move(next), Feedback::error, std::nullopt))
        return;
    setArchiveUndo(std::nullopt);
    // A document that was equal has not cleared it.
    setLibraryUndo(std::nullopt);
}

void AppModel::setLibraryUndo(std::optional<LibraryUndo> undo) {
    const bool had = lastLibraryUndo_.has_value();
    lastLibraryUndo_ = std::move(undo);
    if (had != lastLibraryUndo_.has_value())
        Q_EMIT libraryUndoChanged();
}

void AppModel::undoLastAction() {
    if (!lastLibraryUndo_)
        return;
    if (loadFailed_) {
        setError(lockedWords());
        return;
    }
    if (const auto saved = file_.save(*lastLibraryUndo_->library); !saved) {
        setError(worded("Couldn’t write to your library. ") + saved.error().description());
        return;
    }
    LibraryUndo undone = std::move(*lastLibraryUndo_);
    setLibraryUndo(std::nullopt);
    library_ = std::move(undone.library);
    Q_EMIT libraryChanged();
    if (undone.clearsArchiveUndo)
        setArchiveUndo(std::nullopt);
    setSelectedID(std::nullopt);
    setSwipedLinkID(std::nullopt);
    notify({.id = clock_.newUuid(),
            .title = worded("Undone"),
            .message = undone.title + worded(" reverted."),
            .clipboardURL = {}});
}

} // namespace brinmoor

#include "screens/LibraryScreen.h"

#include "app/AppModel.h"
#include "core/search/LibraryLists.h"
#include "platform/Clock.h"
#include "platform/Preferences.h"
#include "screens/Wording.h"

#include <algorithm>

namespace brinmoor {

namespace {

constexpr std::string_view usageNoticeKey = "hasSeenUsageNotice";

/// "1 link", "2 links".
QString countWords(std::size_t links) {
    return QString::number(links) + u' ' + words(links == 1 ? "link" : "links");
}

} // namespace

LibraryScreen::LibraryScreen(AppModel& model, QObject* parent)
    : QObject(parent), model_(model), links_(this), search_(model, this), commands_(model, this) {
    follow();
    lookIntoArchive();
    showLinks();
    refreshDays();
}

void LibraryScreen::follow() {
    connect(&model_, &AppModel::libraryChanged, this, &LibraryScreen::showChangedLibrary);
    connect(&model_, &AppModel::viewChanged, this, &LibraryScreen::showSearch);
    connect(&model_, &AppModel::shortcutsChanged, this, &LibraryScreen::hintChanged);
    connect(&model_, &AppModel::preferencesChanged, this, &LibraryScreen::hintChanged);
    connect(&model_, &AppModel::archiveUndoChanged, this, &LibraryScreen::undoChanged);
    connect(&model_, &AppModel::sheetsChanged, this, &LibraryScreen::bannersChanged);
    connect(&model_, &AppModel::searchFocusWanted, this, &LibraryScreen::searchFocusWanted);
    usageNotice_ =
        model_.preferences().observe(usageNoticeKey, [this] { Q_EMIT bannersChanged(); });
}

void LibraryScreen::showLinks() {
    const Clock& clock = model_.clock();
    links_.show(model_.currentLibrary(), filtered_.days(model_.view(), model_.currentLibrary(),
                                                        clock.now(), clock.timeZone()));
}

void LibraryScreen::showChangedLibrary() {
    setRowsMoved(true);
    lookIntoArchive();
    showLinks();
}

void LibraryScreen::showSearch() {
    setRowsMoved(false);
    showLinks();
    Q_EMIT emptyStateChanged();
    Q_EMIT listRestarted();
}

void LibraryScreen::lookIntoArchive() {
    const bool empty = std::ranges::none_of(model_.library().links, &SavedLink::isArchived);
    if (archiveEmpty_ == empty)
        return;
    archiveEmpty_ = empty;
    Q_EMIT archiveEmptyChanged();
}

void LibraryScreen::setRowsMoved(bool moved) {
    if (rowsMoved_ == moved)
        return;
    rowsMoved_ = moved;
    Q_EMIT rowsMovedChanged();
}

void LibraryScreen::refreshDays() {
    // "Today" becomes "Yesterday" while the window stands open.
    nextMinute_ = model_.clock().after(std::chrono::minutes(1), [this] {
        showLinks();
        refreshDays();
    });
}

LibraryScreen::EmptyState LibraryScreen::emptyState() const {
    const LibraryFilter& view = model_.view();
    if (!view.query.empty() || view.hasRefinements())
        return NothingFound;
    return view.filter == LibraryFilter::archive ? NothingArchived : NothingSaved;
}

QString LibraryScreen::shortcutLabel() const {
    const auto found = model_.shortcuts().find(allCaptureActions.front());
    return found == model_.shortcuts().end() ? QStringLiteral("K")
                                             : QString::fromStdString(found->second.label());
}

bool LibraryScreen::closesAfterSave() const {
    return model_.closeAfterQuickSave();
}

QString LibraryScreen::undoMessage() const {
    const auto& undo = model_.archiveUndo();
    if (!undo)
        return {};
    if (undo->ids.size() == 1)
        return words(undo->archived ? "Link archived" : "Link restored");
    return countWords(undo->ids.size()) + words(undo->archived ? " archived" : " restored");
}

void LibraryScreen::undoArchive() {
    model_.undoArchive();
}

void LibraryScreen::dismissUndo() {
    model_.dismissArchiveUndo();
}

bool LibraryScreen::showsUsageNotice() const {
    return !model_.preferences().boolean(usageNoticeKey);
}

void LibraryScreen::dismissUsageNotice() {
    model_.preferences().set(usageNoticeKey, true);
    Q_EMIT bannersChanged();
}

bool LibraryScreen::offersTour() const {
    return !model_.onboardingCompleted();
}

void LibraryScreen::continueTour() {
    model_.showOnboardingIfNeededForActiveAccount();
}

void LibraryScreen::setBulkAction(UuidSet ids) {
    bulkAction_ = std::move(ids);
    bulkQuestion_ = bulkAction_.empty()
                        ? QString()
                        : words("Permanently delete ") + countWords(bulkAction_.size()) + u'?';
    Q_EMIT bulkActionChanged();
}

void LibraryScreen::askToEmptyArchive() {
    setBulkAction(LibraryLists::archivedIDs(model_.library().links));
}

void LibraryScreen::emptyArchive() {
    const UuidSet ids = bulkAction_;
    setBulkAction({});
    model_.emptyArchive(ids);
}

void LibraryScreen::cancelBulkAction() {
    setBulkAction({});
}

} // namespace brinmoor

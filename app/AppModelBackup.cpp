// Backups: the library's own format, written to and merged from a file of the user's choice.

#include "app/AppModel.h"

#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/FileDialogs.h"

#include <QPointer>

#include <algorithm>
#include <array>

namespace brinmoor {
namespace {

using text::worded;

constexpr std::array reservedNames{LibraryFilter::allLinks, LibraryFilter::favorites,
                                   LibraryFilter::archive};

/// Adds the collections of a backup that are new and don't stand for a section of the screen.
void addCollections(Library& library, const std::vector<std::string>& names) {
    for (const std::string& name : names)
        if (std::ranges::find(library.collections, name) == library.collections.end() &&
            std::ranges::find(reservedNames, name) == reservedNames.end())
            library.collections.push_back(name);
}

} // namespace

void AppModel::exportLibrary() {
    const QPointer<AppModel> self(this);
    files_.chooseToWrite("Brinmoor-backup.json", [self](const std::optional<std::string>& path) {
        if (self && path)
            self->exportTo(*path);
    });
}

void AppModel::exportTo(const std::string& path) {
    if (const auto saved = LibraryFile(path).save(*library_); !saved)
        setError(worded("Export failed: ") + saved.error().description());
    else
        say("Brinmoor", "Library exported");
}

void AppModel::importLibrary() {
    const QPointer<AppModel> self(this);
    files_.chooseToRead([self](const std::optional<std::string>& path) {
        if (self && path)
            self->importFrom(*path);
    });
}

void AppModel::importFrom(const std::string& path) {
    auto backup = LibraryFile(path).load();
    if (!backup) {
        setError(worded("This backup couldn’t be imported. ") + backup.error().description());
        return;
    }
    Library imported = std::move(backup).value();
    for (SavedLink& link : imported.links)
        link.id = clock_.newUuid();
    Library next = *library_;
    const std::size_t added = next.insert(std::move(imported.links));
    addCollections(next, imported.collections);
    if (!commit(std::move(next), Feedback::error, UndoTitle{.words = "Import Links"}))
        return;
    count(UsageEvent::linksSaved, added);
    notify({.id = clock_.newUuid(),
            .title = worded("Brinmoor"),
            .message = worded("Imported ") + std::to_string(added) + worded(" links"),
            .clipboardURL = {}});
}

} // namespace brinmoor

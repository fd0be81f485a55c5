#include "tests/soak/Books.h"

#include <algorithm>
#include <utility>

namespace brinmoor::testing {
namespace {

/// Without the repeats; the first of each stays.
void unique(std::vector<std::string>& tags) {
    std::vector<std::string> kept;
    for (const std::string& tag : tags)
        if (std::ranges::find(kept, tag) == kept.end())
            kept.push_back(tag);
    tags = kept;
}

} // namespace

Entries entriesOf(const Library& library) {
    Entries entries;
    entries.reserve(library.links.size());
    for (const SavedLink& link : library.links)
        entries.push_back({link.id.string(), link.url, link.title, link.note, link.tags,
                           link.isFavorite, link.isArchived,
                           link.importance ? std::string(storedValue(*link.importance)) : ""});
    return entries;
}

bool sameButForIds(const Entries& left, const Entries& right) {
    return std::ranges::equal(left, right, [](const Entry& one, Entry other) {
        other.id = one.id;
        return one == other;
    });
}

void Books::change(Entries next, bool endsArchiveUndo) {
    if (next == entries)
        return;
    undo_ = Undo{std::exchange(entries, std::move(next)), endsArchiveUndo};
}

void Books::changeOne(const std::string& id, const std::function<void(Entry&)>& edit) {
    Entries next = entries;
    edit(*std::ranges::find(next, id, &Entry::id));
    change(std::move(next));
}

void Books::archive(bool archived, const std::set<std::string>& ids) {
    Entries next = entries;
    std::set<std::string> changed;
    for (Entry& entry : next)
        if (ids.contains(entry.id) && entry.isArchived != archived) {
            entry.isArchived = archived;
            changed.insert(entry.id);
        }
    if (changed.empty())
        return;
    change(std::move(next), true);
    archiveUndo_ = ArchiveUndo{changed, archived};
}

void Books::undoArchive() {
    if (!archiveUndo_)
        return;
    for (Entry& entry : entries)
        if (archiveUndo_->ids.contains(entry.id))
            entry.isArchived = !archiveUndo_->archived;
    forgetUndo();
}

void Books::empty(const std::set<std::string>& ids) {
    const auto removed = std::erase_if(
        entries, [&](const Entry& entry) { return entry.isArchived && ids.contains(entry.id); });
    if (removed > 0)
        forgetUndo();
}

void Books::remove(const std::string& id) {
    Entries next = entries;
    std::erase_if(next, [&](const Entry& entry) { return entry.id == id; });
    change(std::move(next));
}

void Books::undo() {
    if (!undo_)
        return;
    Undo undone = *std::exchange(undo_, std::nullopt);
    entries = std::move(undone.entries);
    if (undone.endsArchiveUndo)
        archiveUndo_.reset();
}

void Books::renameTag(const std::string& old, const std::string& to) {
    Entries next = entries;
    for (Entry& entry : next) {
        std::ranges::replace(entry.tags, old, to);
        unique(entry.tags);
    }
    change(std::move(next));
}

void Books::deleteTag(const std::string& tag) {
    Entries next = entries;
    for (Entry& entry : next)
        std::erase(entry.tags, tag);
    change(std::move(next));
}

void Books::update(const std::string& id, const std::string& title, const std::string& note,
                   const std::vector<std::string>& tags) {
    changeOne(id, [&](Entry& entry) {
        entry.title = title;
        entry.note = note;
        entry.tags = tags;
        unique(entry.tags);
    });
}

void Books::favorite(const std::string& id) {
    changeOne(id, [](Entry& entry) { entry.isFavorite = !entry.isFavorite; });
}

void Books::label(const std::string& id, const std::string& label) {
    changeOne(id, [&](Entry& entry) { entry.label = label; });
}

void Books::add(const Entries& added) {
    Entries next;
    for (const Entry& each : added) {
        const auto isKnown = [&](const Entries& in) {
            return std::ranges::find(in, each.url, &Entry::url) != in.end();
        };
        if (!isKnown(entries) && !isKnown(next))
            next.push_back(each);
    }
    next.insert(next.end(), entries.begin(), entries.end());
    change(std::move(next));
}

void Books::forgetUndo() {
    undo_.reset();
    archiveUndo_.reset();
}

} // namespace brinmoor::testing

#include "screens/LinkCommands.h"

#include "app/AppModel.h"

#include <algorithm>

namespace brinmoor {

LinkCommands::LinkCommands(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
    connect(&model, &AppModel::selectionChanged, this, &LinkCommands::swipedLinkChanged);
}

const SavedLink* LinkCommands::stored(const QString& link) const {
    const auto id = Uuid::parse(link.toStdString());
    const std::vector<SavedLink>& links = model_.library().links;
    const auto found = id ? std::ranges::find(links, *id, &SavedLink::id) : links.end();
    return found == links.end() ? nullptr : &*found;
}

// Copies from here on: a command may replace the library that a link stands in.

void LinkCommands::open(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.open(SavedLink(*found));
}

void LinkCommands::copy(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.copy(SavedLink(*found));
}

void LinkCommands::edit(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.setSelectedID(found->id);
}

void LinkCommands::share(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.share(SavedLink(*found));
}

void LinkCommands::label(const QString& link, const QString& importance) {
    if (const SavedLink* found = stored(link))
        model_.labelImportance(found->id, linkImportance(importance.toStdString()));
}

void LinkCommands::toggleFavorite(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.toggleFavorite(found->id);
}

void LinkCommands::toggleArchived(const QString& link) {
    if (const SavedLink* found = stored(link)) {
        const bool archived = !found->isArchived;
        model_.setArchived(archived, {found->id});
    }
}

void LinkCommands::remove(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.deleteLink(SavedLink(*found));
}

QString LinkCommands::swipedLink() const {
    const auto id = model_.swipedLinkID();
    return id ? QString::fromStdString(id->string()) : QString();
}

void LinkCommands::beginSwipe(const QString& link) {
    if (const SavedLink* found = stored(link))
        model_.setSwipedLinkID(found->id);
}

void LinkCommands::endSwipe() {
    model_.setSwipedLinkID(std::nullopt);
}

} // namespace brinmoor

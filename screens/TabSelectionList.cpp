#include "screens/TabSelectionList.h"

#include "screens/Wording.h"

#include <algorithm>

namespace brinmoor {

TabSelectionList::TabSelectionList(Uuid draftID, TabSelectionActions actions, QObject* parent)
    : QAbstractListModel(parent), draftID_(draftID), actions_(std::move(actions)) {}

void TabSelectionList::show(const std::optional<TabSelectionDraft>& draft) {
    if (!draft || draft->id != draftID_)
        return;
    showLinks(draft->links);
    if (draft->selected == selected_)
        return;
    selected_ = draft->selected;
    if (!links_.empty())
        Q_EMIT dataChanged(index(0), index(int(links_.size()) - 1), {SelectedRole});
    Q_EMIT selectionChanged();
}

void TabSelectionList::showLinks(const std::vector<SavedLink>& links) {
    if (links == links_)
        return;
    beginResetModel();
    links_ = links;
    endResetModel();
    Q_EMIT selectionChanged();
}

bool TabSelectionList::isSelected(int row) const {
    return selected_.contains(links_[std::size_t(row)].id);
}

int TabSelectionList::selectedCount() const {
    return int(std::ranges::count_if(
        links_, [this](const SavedLink& link) { return selected_.contains(link.id); }));
}

QString TabSelectionList::counterText() const {
    return QString::number(selectedCount()) + words(" selected");
}

QString TabSelectionList::saveText() const {
    const int count = selectedCount();
    return count == 1 ? words("Save tab")
                      : words("Save ") + QString::number(count) + words(" tabs");
}

void TabSelectionList::toggle(int row) {
    if (row < 0 || row >= rowCount())
        return;
    const Uuid& id = links_[std::size_t(row)].id;
    UuidSet selected = selected_;
    if (selected.erase(id) == 0)
        selected.insert(id);
    actions_.update(std::move(selected));
}

void TabSelectionList::selectAll() {
    UuidSet all;
    for (const SavedLink& link : links_)
        all.insert(link.id);
    actions_.update(std::move(all));
}

void TabSelectionList::selectNone() {
    actions_.update({});
}

void TabSelectionList::save() {
    if (selectedCount() > 0)
        actions_.save();
}

void TabSelectionList::cancel() {
    actions_.cancel();
}

int TabSelectionList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(links_.size());
}

QVariant TabSelectionList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SavedLink& link = links_[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return QString::fromStdString(link.title);
    case DomainRole:
        return QString::fromStdString(link.domain());
    case AddressRole:
        return QString::fromStdString(link.url);
    case IconHintRole:
        return QString::fromStdString(link.iconURL.value_or(""));
    case SelectedRole:
        return isSelected(index.row());
    default:
        return {};
    }
}

QHash<int, QByteArray> TabSelectionList::roleNames() const {
    return {{TitleRole, "title"},
            {DomainRole, "domain"},
            {AddressRole, "address"},
            {IconHintRole, "iconHint"},
            {SelectedRole, "selected"}};
}

} // namespace brinmoor

#include "screens/CleanupReviewList.h"

#include "app/AppModel.h"
#include "app/TabCleanup.h"
#include "screens/Wording.h"

#include <algorithm>
#include <map>
#include <utility>

namespace brinmoor {

namespace {

/// Site after site in the order in which they come first; `count` is how many there are.
std::vector<BrowserTabSnapshot> bySite(const std::vector<BrowserTabSnapshot>& tabs, int& count) {
    std::map<std::string, std::size_t> places;
    std::vector<std::vector<BrowserTabSnapshot>> sites;
    for (const BrowserTabSnapshot& tab : tabs) {
        const auto [place, isNew] = places.emplace(tab.domain(), sites.size());
        if (isNew)
            sites.emplace_back();
        sites[place->second].push_back(tab);
    }
    std::vector<BrowserTabSnapshot> result;
    for (auto& site : sites)
        std::ranges::move(site, std::back_inserter(result));
    count = int(sites.size());
    return result;
}

} // namespace

CleanupReviewList::CleanupReviewList(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), cleanup_(model.tabCleanup()) {
    connect(&cleanup_, &TabCleanup::cleanupReviewChanged, this, [this] { follow(); });
    follow();
}

void CleanupReviewList::follow() {
    const auto& draft = cleanup_.cleanupReview();
    if (draft) {
        if (!isShown_ || draft->id != draftID_)
            showTabs(*draft);
        showSelection(draft->selected);
    }
    if (std::exchange(isShown_, draft.has_value()) != draft.has_value())
        Q_EMIT isShownChanged();
}

void CleanupReviewList::showTabs(const TabCleanupDraft& draft) {
    beginResetModel();
    draftID_ = draft.id;
    tabs_ = bySite(draft.tabs, siteCount_);
    selected_ = draft.selected;
    endResetModel();
    Q_EMIT sitesChanged();
    Q_EMIT selectionChanged();
}

void CleanupReviewList::showSelection(const std::set<std::string>& selected) {
    if (selected == selected_)
        return;
    selected_ = selected;
    if (!tabs_.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {SelectedRole});
    Q_EMIT selectionChanged();
}

bool CleanupReviewList::opensSite(std::size_t row) const {
    return row == 0 || tabs_[row - 1].domain() != tabs_[row].domain();
}

int CleanupReviewList::selectedCount() const {
    return int(std::ranges::count_if(
        tabs_, [this](const BrowserTabSnapshot& tab) { return selected_.contains(tab.id()); }));
}

QString CleanupReviewList::counterText() const {
    return QString::number(selectedCount()) + words(" selected");
}

QString CleanupReviewList::confirmText() const {
    const int count = selectedCount();
    return count == 1 ? words("Close 1 tab")
                      : words("Close ") + QString::number(count) + words(" tabs");
}

void CleanupReviewList::update(std::set<std::string> selected) {
    const auto& draft = cleanup_.cleanupReview();
    if (draft && draft->id == draftID_)
        cleanup_.updateCleanupSelection(std::move(selected));
}

void CleanupReviewList::toggle(int row) {
    if (row < 0 || row >= rowCount())
        return;
    const std::string id = tabs_[std::size_t(row)].id();
    std::set<std::string> selected = selected_;
    if (selected.erase(id) == 0)
        selected.insert(id);
    update(std::move(selected));
}

void CleanupReviewList::selectAll() {
    std::set<std::string> all;
    for (const BrowserTabSnapshot& tab : tabs_)
        all.insert(tab.id());
    update(std::move(all));
}

void CleanupReviewList::selectNone() {
    update({});
}

void CleanupReviewList::confirm() {
    cleanup_.confirmCleanupReview();
}

void CleanupReviewList::cancel() {
    cleanup_.discardCleanupReview();
}

int CleanupReviewList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(tabs_.size());
}

QVariant CleanupReviewList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const BrowserTabSnapshot& tab = tabs_[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return QString::fromStdString(tab.title);
    case DomainRole:
        return QString::fromStdString(tab.domain());
    case BrowserNameRole:
        return QString::fromStdString(tab.browserName);
    case AddressRole:
        return QString::fromStdString(tab.url);
    case SelectedRole:
        return selected_.contains(tab.id());
    case OpensSiteRole:
        return opensSite(std::size_t(index.row()));
    default:
        return {};
    }
}

QHash<int, QByteArray> CleanupReviewList::roleNames() const {
    return {{TitleRole, "title"},     {DomainRole, "domain"},     {BrowserNameRole, "browserName"},
            {AddressRole, "address"}, {SelectedRole, "selected"}, {OpensSiteRole, "opensSite"}};
}

} // namespace brinmoor

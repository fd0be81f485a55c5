#include "screens/TagsScreen.h"

#include "app/AppModel.h"
#include "core/text/Characters.h"
#include "core/text/Wording.h"
#include "platform/Preferences.h"
#include "screens/Wording.h"

#include <algorithm>
#include <utility>

namespace brinmoor {

namespace {

constexpr std::string_view orderKey = "tagSummarySortOrder";

/// "1 link", "14 links".
QString linksText(std::size_t count) {
    return QString::number(count) + u' ' + words(count == 1 ? "link" : "links");
}

} // namespace

TagsScreen::TagsScreen(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), model_(model) {
    connect(&model, &AppModel::libraryChanged, this, [this] {
        isStale_ = true;
        follow();
    });
    connect(&model, &AppModel::sectionChanged, this, [this] { follow(); });
    orderChange_ = model.preferences().observe(orderKey, [this] { readSortOrder(); });
    readSortOrder();
    follow();
}

TagsScreen::~TagsScreen() = default;

void TagsScreen::follow() {
    if (model_.section() != AppSection::tags) {
        cancelRename();
        cancelRemoval();
    } else if (isStale_) {
        show();
    }
}

void TagsScreen::show() {
    isStale_ = false;
    beginResetModel();
    tags_ = TagSummary::sorted(TagSummary::summarize(model_.library().links), order_);
    endResetModel();
    Q_EMIT countChanged();
    if (editingTag_ && editingRow() < 0)
        setEditingTag(std::nullopt);
    else
        Q_EMIT editingChanged();
}

void TagsScreen::readSortOrder() {
    const auto stored = model_.preferences().text(orderKey);
    const auto order = tagSummarySortOrder(stored.value_or(""));
    if (std::exchange(order_, order.value_or(TagSummarySortOrder::alphabetical)) == order_)
        return;
    isStale_ = true;
    Q_EMIT sortOrderChanged();
    follow();
}

void TagsScreen::setSortOrder(TagSummarySortOrder order) {
    model_.preferences().set(orderKey, std::string(storedValue(order)));
    readSortOrder();
}

QString TagsScreen::sortText() const {
    return byMostLinks() ? words("Most links") : words("Alphabetical");
}

void TagsScreen::sortAlphabetically() {
    setSortOrder(TagSummarySortOrder::alphabetical);
}

void TagsScreen::sortByMostLinks() {
    setSortOrder(TagSummarySortOrder::mostLinks);
}

const TagSummary* TagsScreen::tagAt(int row) const {
    return row >= 0 && row < count() ? &tags_[std::size_t(row)] : nullptr;
}

void TagsScreen::select(int row) {
    if (const TagSummary* tag = tagAt(row)) {
        // A copy, since the list may change with the section.
        const std::string name = tag->name;
        model_.selectTag(name);
    }
}

int TagsScreen::editingRow() const {
    if (!editingTag_)
        return -1;
    const auto found = std::ranges::find(tags_, *editingTag_, &TagSummary::name);
    return found == tags_.end() ? -1 : int(found - tags_.begin());
}

void TagsScreen::setDraft(const QString& draft) {
    if (std::exchange(draft_, draft) != draft)
        Q_EMIT draftChanged();
}

void TagsScreen::beginRename(int row) {
    const TagSummary* tag = tagAt(row);
    if (!tag)
        return;
    setDraft(QString::fromStdString(tag->name));
    setEditingTag(tag->name);
}

void TagsScreen::saveRename() {
    if (!editingTag_)
        return;
    const std::string old = *editingTag_;
    const auto names = SavedLink::normalizedTags({draft_.toStdString()});
    const bool isOther = !names.empty() && text::lowercased(names.front()) != text::lowercased(old);
    if (isOther && !model_.renameTag(old, names.front()))
        return;
    setEditingTag(std::nullopt);
}

void TagsScreen::cancelRename() {
    setEditingTag(std::nullopt);
}

void TagsScreen::setEditingTag(std::optional<std::string> tag) {
    if (editingTag_ == tag)
        return;
    editingTag_ = std::move(tag);
    Q_EMIT editingChanged();
}

void TagsScreen::askRemoval(int row) {
    if (const TagSummary* tag = tagAt(row))
        setDeletingTag(*tag);
}

void TagsScreen::confirmRemoval() {
    if (!deletingTag_)
        return;
    const std::string name = deletingTag_->name;
    setDeletingTag(std::nullopt);
    model_.deleteTag(name);
}

void TagsScreen::cancelRemoval() {
    setDeletingTag(std::nullopt);
}

void TagsScreen::setDeletingTag(std::optional<TagSummary> tag) {
    if (deletingTag_ == tag)
        return;
    deletingTag_ = std::move(tag);
    // The words stay while the question leaves.
    if (deletingTag_) {
        removalTitle_ = words("Remove #") + QString::fromStdString(deletingTag_->name) + u'?';
        removalMessage_ =
            words("The links will stay in your library. Only this tag will be removed from ") +
            linksText(deletingTag_->count) + u'.';
    }
    Q_EMIT removalChanged();
}

int TagsScreen::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant TagsScreen::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TagSummary& tag = tags_[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return QString::fromStdString(tag.name);
    case CountTextRole:
        return linksText(tag.count);
    default:
        return {};
    }
}

QHash<int, QByteArray> TagsScreen::roleNames() const {
    return {{NameRole, "name"}, {CountTextRole, "countText"}};
}

} // namespace brinmoor

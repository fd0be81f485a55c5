#include "screens/LibraryList.h"

#include "screens/Wording.h"

#include <algorithm>
#include <utility>

namespace brinmoor {

namespace {

QStringList tagNames(const SavedLink& link) {
    QStringList names;
    for (const std::string& tag : link.tags)
        names.append(shown(tag));
    return names;
}

QString importanceOf(const SavedLink& link) {
    if (!link.importance)
        return {};
    const std::string_view stored = storedValue(*link.importance);
    return QString::fromUtf8(stored.data(), qsizetype(stored.size()));
}

} // namespace

void LibraryList::show(std::shared_ptr<const Library> library, const std::vector<LinkDay>& days) {
    std::size_t count = 0;
    for (const LinkDay& day : days)
        count += day.links.size();
    std::vector<Row> rows;
    rows.reserve(count);
    for (const LinkDay& day : days) {
        const QString label = shown(day.label);
        for (const SavedLink* link : day.links)
            rows.push_back({link, label});
    }
    const bool wasEmpty = isEmpty();
    // The rows of before are looked at until the last of them is replaced.
    const std::shared_ptr<const Library> before = std::exchange(library_, std::move(library));
    replaceRows(std::move(rows));
    if (wasEmpty != isEmpty())
        Q_EMIT emptyChanged();
}

void LibraryList::replaceRows(std::vector<Row> rows) {
    const auto sameRow = [](const Row& a, const Row& b) {
        return a.link->id == b.link->id && a.day == b.day;
    };
    const std::size_t shorter = std::min(rows.size(), rows_.size());
    std::size_t head = 0;
    while (head < shorter && sameRow(rows[head], rows_[head]))
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head &&
           sameRow(rows[rows.size() - 1 - tail], rows_[rows_.size() - 1 - tail]))
        ++tail;
    adoptValues(rows, 0, 0, head);
    adoptValues(rows, rows_.size() - tail, rows.size() - tail, tail);
    replaceMiddle(rows, head, tail);
}

void LibraryList::adoptValues(const std::vector<Row>& rows, std::size_t begin, std::size_t newBegin,
                              std::size_t count) {
    for (std::size_t at = 0; at < count; ++at) {
        const SavedLink* const before =
            std::exchange(rows_[begin + at].link, rows[newBegin + at].link);
        if (before == rows_[begin + at].link || *before == *rows_[begin + at].link)
            continue;
        const QModelIndex changed = index(int(begin + at));
        Q_EMIT dataChanged(changed, changed);
    }
}

void LibraryList::replaceMiddle(const std::vector<Row>& rows, std::size_t head, std::size_t tail) {
    const auto begin = std::ptrdiff_t(head);
    const auto oldEnd = std::ptrdiff_t(rows_.size() - tail);
    const auto newEnd = std::ptrdiff_t(rows.size() - tail);
    if (oldEnd > begin) {
        beginRemoveRows({}, int(begin), int(oldEnd) - 1);
        rows_.erase(rows_.begin() + begin, rows_.begin() + oldEnd);
        endRemoveRows();
    }
    if (newEnd > begin) {
        beginInsertRows({}, int(begin), int(newEnd) - 1);
        rows_.insert(rows_.begin() + begin, rows.begin() + begin, rows.begin() + newEnd);
        endInsertRows();
    }
}

int LibraryList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(rows_.size());
}

QVariant LibraryList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows_[std::size_t(index.row())];
    const SavedLink& link = *row.link;
    switch (role) {
    case LinkIdRole:
        return shown(link.id.string());
    case Qt::DisplayRole:
    case TitleRole:
        return shown(link.title);
    case DomainRole:
        return shown(link.domain());
    case AddressRole:
        return shown(link.url);
    case IconRole:
        return shown(link.iconURL.value_or(""));
    case TagsRole:
        return tagNames(link);
    case NoteRole:
        return shown(link.note);
    case FavoriteRole:
        return link.isFavorite;
    case ArchivedRole:
        return link.isArchived;
    case ImportanceRole:
        return importanceOf(link);
    case DayRole:
        return row.day;
    default:
        return {};
    }
}

QHash<int, QByteArray> LibraryList::roleNames() const {
    return {{LinkIdRole, "linkId"},
            {TitleRole, "title"},
            {DomainRole, "domain"},
            {AddressRole, "address"},
            {IconRole, "iconHint"},
            {TagsRole, "tags"},
            {NoteRole, "note"},
            {FavoriteRole, "isFavorite"},
            {ArchivedRole, "isArchived"},
            {ImportanceRole, "importance"},
            {DayRole, "day"}};
}

} // namespace brinmoor

#include "screens/LibraryList.h"

#include "core/library/LinkDay.h"

#include <algorithm>
#include <iterator>

namespace brinmoor {

namespace {

QStringList tagNames(const SavedLink& link) {
    QStringList names;
    for (const std::string& tag : link.tags)
        names.append(QString::fromStdString(tag));
    return names;
}

std::vector<SavedLink> activeOnes(const std::vector<SavedLink>& links) {
    std::vector<SavedLink> active;
    std::ranges::copy_if(links, std::back_inserter(active),
                         [](const SavedLink& link) { return !link.isArchived; });
    return active;
}

} // namespace

void LibraryList::show(const std::vector<SavedLink>& links, Instant now,
                       std::string_view timeZone) {
    std::vector<Row> rows;
    std::vector<std::string> labels;
    for (LinkDay& day : LinkDay::group(activeOnes(links), now, timeZone)) {
        for (SavedLink& link : day.links)
            rows.push_back({std::move(link), labels.size()});
        labels.push_back(std::move(day.label));
    }
    const bool wasEmpty = isEmpty();
    // A view reads headings from its neighbours: with other days it has to begin anew.
    if (labels != dayLabels_) {
        beginResetModel();
        rows_ = std::move(rows);
        dayLabels_ = std::move(labels);
        endResetModel();
    } else {
        replaceRows(std::move(rows));
    }
    if (wasEmpty != isEmpty())
        Q_EMIT emptyChanged();
}

void LibraryList::replaceRows(std::vector<Row> rows) {
    const auto sameRow = [](const Row& a, const Row& b) {
        return a.link.id == b.link.id && a.day == b.day;
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
    replaceMiddle(std::move(rows), head, tail);
}

void LibraryList::adoptValues(std::vector<Row>& rows, std::size_t begin, std::size_t newBegin,
                              std::size_t count) {
    for (std::size_t at = 0; at < count; ++at) {
        if (rows_[begin + at].link == rows[newBegin + at].link)
            continue;
        rows_[begin + at].link = std::move(rows[newBegin + at].link);
        const QModelIndex changed = index(int(begin + at));
        Q_EMIT dataChanged(changed, changed);
    }
}

void LibraryList::replaceMiddle(std::vector<Row> rows, std::size_t head, std::size_t tail) {
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
        rows_.insert(rows_.begin() + begin, std::make_move_iterator(rows.begin() + begin),
                     std::make_move_iterator(rows.begin() + newEnd));
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
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return QString::fromStdString(row.link.title);
    case DomainRole:
        return QString::fromStdString(row.link.domain());
    case TagsRole:
        return tagNames(row.link);
    case NoteRole:
        return QString::fromStdString(row.link.note);
    case FavoriteRole:
        return row.link.isFavorite;
    case DayRole:
        return QString::fromStdString(dayLabels_[row.day]);
    default:
        return {};
    }
}

QHash<int, QByteArray> LibraryList::roleNames() const {
    return {{TitleRole, "title"}, {DomainRole, "domain"},       {TagsRole, "tags"},
            {NoteRole, "note"},   {FavoriteRole, "isFavorite"}, {DayRole, "day"}};
}

} // namespace brinmoor

#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>

#include <string>
#include <string_view>
#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/SavedLink.h"

namespace brinmoor {

/// The rows of the library list: the active links by day, newest first. Texts are made for the
/// rows that a view asks for, and for no others.
class LibraryList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool empty READ isEmpty NOTIFY emptyChanged FINAL)

public:
    enum Role { TitleRole = Qt::UserRole, DomainRole, TagsRole, NoteRole, FavoriteRole, DayRole };

    using QAbstractListModel::QAbstractListModel;

    /// Shows the active ones of `links`, grouped by the day of the time zone with this IANA name.
    /// Rows that are the same as before stay, so that a view keeps its place.
    void show(const std::vector<SavedLink>& links, Instant now, std::string_view timeZone);

    [[nodiscard]] bool isEmpty() const noexcept { return rows_.empty(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void emptyChanged();

private:
    struct Row {
        SavedLink link;
        std::size_t day = 0; ///< index in `dayLabels_`
    };

    void replaceRows(std::vector<Row> rows);
    void replaceMiddle(std::vector<Row> rows, std::size_t head, std::size_t tail);
    void adoptValues(std::vector<Row>& rows, std::size_t begin, std::size_t newBegin,
                     std::size_t count);

    std::vector<Row> rows_;
    std::vector<std::string> dayLabels_;
};

} // namespace brinmoor

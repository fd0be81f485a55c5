#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <memory>
#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/Library.h"
#include "core/library/LinkDay.h"

namespace brinmoor {

/// The rows of the library list: links under the headings of their groups. Texts are made for the
/// rows that a view asks for, and for no others.
class LibraryList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library screen")
    Q_PROPERTY(bool empty READ isEmpty NOTIFY emptyChanged FINAL)

public:
    enum Role {
        LinkIdRole = Qt::UserRole,
        TitleRole,
        DomainRole,
        AddressRole,
        IconRole,
        TagsRole,
        NoteRole,
        FavoriteRole,
        ArchivedRole,
        ImportanceRole, ///< as it is stored, or empty
        DayRole
    };

    using QAbstractListModel::QAbstractListModel;

    /// Shows the links of `days`, which are those of `library`, in their order. Rows that are the
    /// same as before stay, so that a view keeps its place.
    void show(std::shared_ptr<const Library> library, const std::vector<LinkDay>& days);

    [[nodiscard]] bool isEmpty() const noexcept { return rows_.empty(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void emptyChanged();

private:
    struct Row {
        const SavedLink* link; ///< one of `library_`
        QString day;           ///< the heading that it stands under; one text for all of them
    };

    void replaceRows(std::vector<Row> rows);
    void replaceMiddle(const std::vector<Row>& rows, std::size_t head, std::size_t tail);
    void adoptValues(const std::vector<Row>& rows, std::size_t begin, std::size_t newBegin,
                     std::size_t count);

    std::shared_ptr<const Library> library_;
    std::vector<Row> rows_;
};

} // namespace brinmoor

#pragma once

#include "platform/Subscription.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <optional>
#include <string>
#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/TagSummary.h"

namespace brinmoor {

class AppModel;

/// All tags of the library with their counts: where they are renamed, removed and looked up.
class TagsScreen final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)
    Q_PROPERTY(bool byMostLinks READ byMostLinks NOTIFY sortOrderChanged FINAL)
    Q_PROPERTY(QString sortText READ sortText NOTIFY sortOrderChanged FINAL)
    /// The row that is in rename mode; -1 when none is.
    Q_PROPERTY(int editingRow READ editingRow NOTIFY editingChanged FINAL)
    Q_PROPERTY(QString draft READ draft WRITE setDraft NOTIFY draftChanged FINAL)
    Q_PROPERTY(bool asksForRemoval READ asksForRemoval NOTIFY removalChanged FINAL)
    Q_PROPERTY(QString removalTitle READ removalTitle NOTIFY removalChanged FINAL)
    Q_PROPERTY(QString removalMessage READ removalMessage NOTIFY removalChanged FINAL)

public:
    enum Role { NameRole = Qt::UserRole, CountTextRole };

    /// The model outlives it.
    explicit TagsScreen(AppModel& model, QObject* parent = nullptr);
    ~TagsScreen() override;

    [[nodiscard]] int count() const noexcept { return int(tags_.size()); }
    [[nodiscard]] bool byMostLinks() const noexcept {
        return order_ == TagSummarySortOrder::mostLinks;
    }
    /// "Alphabetical" or "Most links".
    [[nodiscard]] QString sortText() const;
    Q_INVOKABLE void sortAlphabetically();
    Q_INVOKABLE void sortByMostLinks();

    /// Goes to the tag's links.
    Q_INVOKABLE void select(int row);

    [[nodiscard]] int editingRow() const;
    [[nodiscard]] const QString& draft() const noexcept { return draft_; }
    void setDraft(const QString& draft);
    Q_INVOKABLE void beginRename(int row);
    /// A draft without a tag in it, or one that only changes letter case, changes nothing. The row
    /// stays in rename mode when the change can't be written.
    Q_INVOKABLE void saveRename();
    Q_INVOKABLE void cancelRename();

    [[nodiscard]] bool asksForRemoval() const noexcept { return deletingTag_.has_value(); }
    [[nodiscard]] const QString& removalTitle() const noexcept { return removalTitle_; }
    [[nodiscard]] const QString& removalMessage() const noexcept { return removalMessage_; }
    Q_INVOKABLE void askRemoval(int row);
    Q_INVOKABLE void confirmRemoval();
    Q_INVOKABLE void cancelRemoval();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();
    void sortOrderChanged();
    void editingChanged();
    void draftChanged();
    void removalChanged();

private:
    /// Takes the tags of the present library, or notes that this is to be done: nobody looks.
    void follow();
    void show();
    void readSortOrder();
    void setSortOrder(TagSummarySortOrder order);
    void setEditingTag(std::optional<std::string> tag);
    void setDeletingTag(std::optional<TagSummary> tag);
    [[nodiscard]] const TagSummary* tagAt(int row) const;

    AppModel& model_;
    Subscription orderChange_;
    TagSummarySortOrder order_ = TagSummarySortOrder::alphabetical;
    std::vector<TagSummary> tags_;
    bool isStale_ = true;
    std::optional<std::string> editingTag_;
    QString draft_;
    std::optional<TagSummary> deletingTag_;
    QString removalTitle_;
    QString removalMessage_;
};

} // namespace brinmoor

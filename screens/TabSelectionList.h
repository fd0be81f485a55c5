#pragma once

#include "app/CaptureDraft.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <functional>
#include <optional>

namespace brinmoor {

/// What the list asks of the application.
struct TabSelectionActions {
    std::function<void(UuidSet selected)> update;
    std::function<void()> save;
    std::function<void()> cancel;
};

/// The tabs of one draft with their boxes, and the words that count them. It shows what it is
/// given and asks for changes; the draft itself is the application's.
class TabSelectionList final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the tab selection panel")
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged FINAL)
    Q_PROPERTY(QString counterText READ counterText NOTIFY selectionChanged FINAL)
    Q_PROPERTY(QString saveText READ saveText NOTIFY selectionChanged FINAL)

public:
    enum Role { TitleRole = Qt::UserRole, DomainRole, AddressRole, IconHintRole, SelectedRole };

    TabSelectionList(Uuid draftID, TabSelectionActions actions, QObject* parent = nullptr);

    /// Shows the draft; a draft of another panel, or none, changes nothing.
    void show(const std::optional<TabSelectionDraft>& draft);

    [[nodiscard]] int selectedCount() const;
    /// "4 selected".
    [[nodiscard]] QString counterText() const;
    /// "Save tab", "Save 4 tabs".
    [[nodiscard]] QString saveText() const;

    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectNone();
    /// Does nothing while nothing is selected.
    Q_INVOKABLE void save();
    Q_INVOKABLE void cancel();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void selectionChanged();

private:
    void showLinks(const std::vector<SavedLink>& links);
    [[nodiscard]] bool isSelected(int row) const;

    Uuid draftID_;
    TabSelectionActions actions_;
    std::vector<SavedLink> links_;
    UuidSet selected_;
};

} // namespace brinmoor

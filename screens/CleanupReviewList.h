#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <set>
#include <string>
#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/Uuid.h"
#include "core/tabs/BrowserTabSnapshot.h"

namespace brinmoor {

class AppModel;
class TabCleanup;
struct TabCleanupDraft;

/// The tabs that wait to be closed, site by site, with their boxes.
class CleanupReviewList final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged FINAL)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged FINAL)
    Q_PROPERTY(QString counterText READ counterText NOTIFY selectionChanged FINAL)
    Q_PROPERTY(QString confirmText READ confirmText NOTIFY selectionChanged FINAL)
    Q_PROPERTY(int siteCount READ siteCount NOTIFY sitesChanged FINAL)

public:
    enum Role {
        TitleRole = Qt::UserRole,
        DomainRole,
        BrowserNameRole,
        AddressRole,
        SelectedRole,
        OpensSiteRole
    };

    /// The model outlives it.
    explicit CleanupReviewList(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    [[nodiscard]] int selectedCount() const;
    /// "3 selected".
    [[nodiscard]] QString counterText() const;
    /// "Close 1 tab", "Close 3 tabs".
    [[nodiscard]] QString confirmText() const;
    [[nodiscard]] int siteCount() const noexcept { return siteCount_; }

    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectNone();
    /// Closes the selected tabs; nothing while none is.
    Q_INVOKABLE void confirm();
    Q_INVOKABLE void cancel();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void isShownChanged();
    void selectionChanged();
    void sitesChanged();

private:
    void follow();
    [[nodiscard]] bool opensSite(std::size_t row) const;
    void showTabs(const TabCleanupDraft& draft);
    void showSelection(const std::set<std::string>& selected);
    /// Changes the draft that is shown, and no other.
    void update(std::set<std::string> selected);

    TabCleanup& cleanup_;
    Uuid draftID_;
    std::vector<BrowserTabSnapshot> tabs_;
    std::set<std::string> selected_;
    int siteCount_ = 0;
    bool isShown_ = false;
};

} // namespace brinmoor

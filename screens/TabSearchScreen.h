#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/tabs/OpenBrowserTab.h"

namespace brinmoor {

class TabSearchModel;

/// The tabs that the search means, the best first, and the words around them.
class TabSearchScreen final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the tab search panel")
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged FINAL)
    Q_PROPERTY(QString heading READ heading NOTIFY queryChanged FINAL)
    Q_PROPERTY(QString countText READ countText NOTIFY listChanged FINAL)
    Q_PROPERTY(bool loading READ loading NOTIFY listChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY listChanged FINAL)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged FINAL)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged FINAL)
    Q_PROPERTY(bool messageIsFailure READ messageIsFailure NOTIFY messageChanged FINAL)

public:
    enum Role { TitleRole = Qt::UserRole, DomainRole, BrowserNameRole, AddressRole };

    /// `search` outlives the screen.
    explicit TabSearchScreen(TabSearchModel& search, QObject* parent = nullptr);

    [[nodiscard]] QString query() const;
    void setQuery(const QString& query);
    /// "OPEN TABS", or "BEST MATCHES" once something is searched for.
    [[nodiscard]] QString heading() const;
    /// "34 tabs in your browsers": all of them, whatever is searched for.
    [[nodiscard]] QString countText() const;
    [[nodiscard]] bool loading() const;
    [[nodiscard]] bool isEmpty() const noexcept { return results_.empty(); }
    [[nodiscard]] int selectedIndex() const;
    /// Empty when there is none.
    [[nodiscard]] QString message() const;
    [[nodiscard]] bool messageIsFailure() const;

    Q_INVOKABLE void refresh();
    /// Moves the selection, within the list.
    Q_INVOKABLE void move(int delta);
    /// Brings the tab of a row to the front; nothing for a row that isn't there.
    Q_INVOKABLE void activate(int row);
    Q_INVOKABLE void activateSelected();
    Q_INVOKABLE void saveTab(int row);
    Q_INVOKABLE void cancel() { Q_EMIT cancelled(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void queryChanged();
    void listChanged();
    void selectedIndexChanged();
    void messageChanged();
    /// The user wants the panel gone.
    void cancelled();

private:
    void showResults();
    [[nodiscard]] const OpenBrowserTab* tabAt(int row) const;

    TabSearchModel& search_;
    std::vector<OpenBrowserTab> results_;
};

} // namespace brinmoor

#include "screens/TabSearchScreen.h"

#include "browser/TabSearchModel.h"
#include "screens/Wording.h"

namespace brinmoor {

TabSearchScreen::TabSearchScreen(TabSearchModel& search, QObject* parent)
    : QAbstractListModel(parent), search_(search) {
    connect(&search_, &TabSearchModel::queryChanged, this, [this] {
        showResults();
        Q_EMIT queryChanged();
    });
    connect(&search_, &TabSearchModel::tabsChanged, this, [this] { showResults(); });
    connect(&search_, &TabSearchModel::loadingChanged, this, &TabSearchScreen::listChanged);
    connect(&search_, &TabSearchModel::messageChanged, this, &TabSearchScreen::messageChanged);
    connect(&search_, &TabSearchModel::selectedIndexChanged, this,
            &TabSearchScreen::selectedIndexChanged);
    showResults();
}

void TabSearchScreen::showResults() {
    beginResetModel();
    results_ = search_.results();
    endResetModel();
    Q_EMIT listChanged();
}

QString TabSearchScreen::query() const {
    return QString::fromStdString(search_.query());
}

void TabSearchScreen::setQuery(const QString& query) {
    search_.setQuery(query.toStdString());
}

QString TabSearchScreen::heading() const {
    return query().trimmed().isEmpty() ? words("OPEN TABS") : words("BEST MATCHES");
}

QString TabSearchScreen::countText() const {
    return QString::number(search_.tabs().size()) + words(" tabs in your browsers");
}

bool TabSearchScreen::loading() const {
    return search_.loading();
}

int TabSearchScreen::selectedIndex() const {
    return search_.selectedIndex();
}

QString TabSearchScreen::message() const {
    return QString::fromStdString(search_.message().value_or(""));
}

bool TabSearchScreen::messageIsFailure() const {
    return search_.messageIsFailure();
}

void TabSearchScreen::refresh() {
    search_.refresh();
}

void TabSearchScreen::move(int delta) {
    search_.move(delta);
}

const OpenBrowserTab* TabSearchScreen::tabAt(int row) const {
    return row >= 0 && row < rowCount() ? &results_[std::size_t(row)] : nullptr;
}

void TabSearchScreen::activate(int row) {
    if (const OpenBrowserTab* tab = tabAt(row))
        search_.activate(*tab);
}

void TabSearchScreen::activateSelected() {
    activate(search_.selectedIndex());
}

void TabSearchScreen::saveTab(int row) {
    if (const OpenBrowserTab* tab = tabAt(row))
        search_.saveTab(*tab);
}

int TabSearchScreen::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(results_.size());
}

QVariant TabSearchScreen::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const OpenBrowserTab& tab = results_[std::size_t(index.row())];
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
    default:
        return {};
    }
}

QHash<int, QByteArray> TabSearchScreen::roleNames() const {
    return {{TitleRole, "title"},
            {DomainRole, "domain"},
            {BrowserNameRole, "browserName"},
            {AddressRole, "address"}};
}

} // namespace brinmoor

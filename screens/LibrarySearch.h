#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/search/LibraryFilter.h"

namespace brinmoor {

class AppModel;

/// What the library is searched and narrowed by, as the model holds it, and what there is to
/// choose from.
class LibrarySearch final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library screen")
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed FINAL)
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY changed FINAL)
    Q_PROPERTY(
        bool everywhere READ searchesEverywhere WRITE setSearchesEverywhere NOTIFY changed FINAL)
    Q_PROPERTY(QString scopeTitle READ scopeTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString sectionTitle READ sectionTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString tag READ tag WRITE setTag NOTIFY changed FINAL)
    Q_PROPERTY(QString website READ website WRITE setWebsite NOTIFY changed FINAL)
    Q_PROPERTY(bool notesOnly READ isNotesOnly WRITE setNotesOnly NOTIFY changed FINAL)
    Q_PROPERTY(bool refined READ isRefined NOTIFY changed FINAL)
    Q_PROPERTY(QStringList tagSuggestions READ tagSuggestions NOTIFY suggestionsChanged FINAL)

public:
    /// The model outlives the search.
    explicit LibrarySearch(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString query() const;
    void setQuery(const QString& query);
    /// "All links", "Favorites" or "Archive", or a collection.
    [[nodiscard]] QString filter() const;
    void setFilter(const QString& filter);
    [[nodiscard]] bool searchesEverywhere() const;
    void setSearchesEverywhere(bool everywhere);
    /// Where a search looks, and the name of the section that it can be held to.
    [[nodiscard]] QString scopeTitle() const;
    [[nodiscard]] QString sectionTitle() const;

    /// The refinements; an empty text is none.
    [[nodiscard]] QString tag() const;
    void setTag(const QString& tag);
    [[nodiscard]] QString website() const;
    void setWebsite(const QString& website);
    [[nodiscard]] bool isNotesOnly() const;
    void setNotesOnly(bool only);
    [[nodiscard]] bool isRefined() const;
    /// Ends the search and every refinement.
    Q_INVOKABLE void clearFilters();
    /// Goes to the links with this tag.
    Q_INVOKABLE void selectTag(const QString& tag);

    /// The tags that the query could mean, while it begins with "#".
    [[nodiscard]] QStringList tagSuggestions() const;
    /// How many links have the suggestion with this place.
    [[nodiscard]] Q_INVOKABLE int suggestionCount(int place) const;

    /// The choices of the filter menu, made for each call: maps of "kind" ("heading", "tag",
    /// "website", "note" or "line"), "text", "value" and "checked".
    [[nodiscard]] Q_INVOKABLE QVariantList refinements() const;
    /// Makes one of these choices.
    Q_INVOKABLE void refine(const QString& kind, const QString& value);

Q_SIGNALS:
    void changed();
    void suggestionsChanged();

private:
    template <class Change>
    void changeView(Change change);
    void findSuggestions();

    AppModel& model_;
    std::vector<TagSummary> suggestions_;
};

} // namespace brinmoor

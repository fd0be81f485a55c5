#include "screens/LibrarySearch.h"

#include "app/AppModel.h"
#include "core/search/LibraryLists.h"
#include "core/search/LinkSearch.h"
#include "screens/Wording.h"

namespace brinmoor {

namespace {

QString shown(const std::optional<std::string>& text) {
    return text ? brinmoor::shown(*text) : QString();
}

constexpr QLatin1String headingKind("heading");
constexpr QLatin1String tagKind("tag");
constexpr QLatin1String websiteKind("website");
constexpr QLatin1String noteKind("note");
constexpr QLatin1String lineKind("line");

bool isSame(const std::string& choice, const std::optional<std::string>& chosen) {
    return chosen && LinkSearch::folded(choice) == LinkSearch::folded(*chosen);
}

std::optional<std::string> refinement(const QString& text) {
    return text.isEmpty() ? std::nullopt : std::optional(text.toStdString());
}

} // namespace

LibrarySearch::LibrarySearch(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
    connect(&model, &AppModel::viewChanged, this, [this] {
        findSuggestions();
        Q_EMIT changed();
    });
    connect(&model, &AppModel::libraryChanged, this, [this] { findSuggestions(); });
    findSuggestions();
}

template <class Change>
void LibrarySearch::changeView(Change change) {
    LibraryFilter view = model_.view();
    change(view);
    model_.setView(std::move(view));
}

QString LibrarySearch::query() const {
    return shown(model_.view().query);
}

void LibrarySearch::setQuery(const QString& query) {
    changeView([&](LibraryFilter& view) { view.query = query.toStdString(); });
}

QString LibrarySearch::filter() const {
    return shown(model_.view().filter);
}

void LibrarySearch::setFilter(const QString& filter) {
    changeView([&](LibraryFilter& view) { view.filter = filter.toStdString(); });
}

bool LibrarySearch::searchesEverywhere() const {
    return model_.view().searchEverywhere;
}

void LibrarySearch::setSearchesEverywhere(bool everywhere) {
    changeView([&](LibraryFilter& view) { view.searchEverywhere = everywhere; });
}

QString LibrarySearch::scopeTitle() const {
    return shown(model_.view().searchScopeTitle());
}

QString LibrarySearch::sectionTitle() const {
    LibraryFilter here = model_.view();
    here.searchEverywhere = false;
    return shown(here.searchScopeTitle());
}

QString LibrarySearch::tag() const {
    return shown(model_.view().selectedTag);
}

void LibrarySearch::setTag(const QString& tag) {
    changeView([&](LibraryFilter& view) { view.selectedTag = refinement(tag); });
}

QString LibrarySearch::website() const {
    return shown(model_.view().selectedDomain);
}

void LibrarySearch::setWebsite(const QString& website) {
    changeView([&](LibraryFilter& view) { view.selectedDomain = refinement(website); });
}

bool LibrarySearch::isNotesOnly() const {
    return model_.view().notesOnly;
}

void LibrarySearch::setNotesOnly(bool only) {
    changeView([&](LibraryFilter& view) { view.notesOnly = only; });
}

bool LibrarySearch::isRefined() const {
    return model_.hasRefinements();
}

void LibrarySearch::clearFilters() {
    model_.clearFilters();
}

void LibrarySearch::selectTag(const QString& tag) {
    model_.selectTag(tag.toStdString());
}

void LibrarySearch::findSuggestions() {
    auto found = model_.view().tagSearchSuggestions(model_.library().links);
    if (found == suggestions_)
        return;
    suggestions_ = std::move(found);
    Q_EMIT suggestionsChanged();
}

QStringList LibrarySearch::tagSuggestions() const {
    QStringList names;
    for (const TagSummary& each : suggestions_)
        names.append(shown(each.name));
    return names;
}

int LibrarySearch::suggestionCount(int place) const {
    return int(suggestions_.at(std::size_t(place)).count);
}

QVariantList LibrarySearch::refinements() const {
    QVariantList choices;
    const auto add = [&](QLatin1String kind, const QString& text, const QString& value = {},
                         bool checked = false) {
        choices.append(QVariantMap{{u"kind"_qs, QString(kind)},
                                   {u"text"_qs, text},
                                   {u"value"_qs, value},
                                   {u"checked"_qs, checked}});
    };
    const LibraryFilter& view = model_.view();
    const std::vector<SavedLink>& links = model_.library().links;
    add(headingKind, words("Tags"));
    add(tagKind, words("All tags"), {}, !view.selectedTag);
    for (const TagSummary& each : view.tagSummaries(links))
        add(tagKind, shown(each.name), shown(each.name), isSame(each.name, view.selectedTag));
    add(lineKind, {});
    add(headingKind, words("Websites"));
    add(websiteKind, words("All websites"), {}, !view.selectedDomain);
    for (const std::string& each : LibraryLists::domainOptions(links))
        add(websiteKind, shown(each), shown(each), isSame(each, view.selectedDomain));
    add(lineKind, {});
    add(noteKind, words("Has a note"), {}, view.notesOnly);
    return choices;
}

void LibrarySearch::refine(const QString& kind, const QString& value) {
    if (kind == tagKind)
        setTag(value);
    else if (kind == websiteKind)
        setWebsite(value);
    else if (kind == noteKind)
        setNotesOnly(!isNotesOnly());
}

} // namespace brinmoor

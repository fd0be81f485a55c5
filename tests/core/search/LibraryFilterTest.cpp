#include "core/search/LibraryFilter.h"

#include "core/library/Library.h"
#include "tests/core/UserLocale.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

const Instant now{8e8};

SavedLink saved(std::string title, std::string collection = "Inbox") {
    SavedLink link;
    link.url = "https://example.com/" + title;
    link.title = std::move(title);
    link.collection = std::move(collection);
    link.browser = "Chromium";
    link.createdAt = now;
    return link;
}

SavedLink archived(std::string title, std::string collection = "Inbox") {
    SavedLink link = saved(std::move(title), std::move(collection));
    link.isArchived = true;
    return link;
}

SavedLink favorite(SavedLink link) {
    link.isFavorite = true;
    return link;
}

SavedLink tagged(std::string title, std::vector<std::string> tags) {
    SavedLink link = saved(std::move(title));
    link.tags = std::move(tags);
    return link;
}

SavedLink noted(std::string title, std::string note) {
    SavedLink link = saved(std::move(title));
    link.note = std::move(note);
    return link;
}

SavedLink at(std::string title, std::string url) {
    SavedLink link = saved(std::move(title));
    link.url = std::move(url);
    return link;
}

SavedLink timed(SavedLink link, double seconds) {
    link.createdAt = {now.seconds + seconds};
    return link;
}

std::vector<std::string> titles(const LinkPointers& links) {
    std::vector<std::string> result;
    for (const SavedLink* link : links)
        result.push_back(link->title);
    return result;
}

std::vector<std::string> shown(const LibraryFilter& filter, const std::vector<SavedLink>& links) {
    return titles(filter.visibleLinks(links));
}

LibraryFilter filtered(std::string name) {
    LibraryFilter filter;
    filter.filter = std::move(name);
    return filter;
}

LibraryFilter searching(std::string query) {
    LibraryFilter filter;
    filter.query = std::move(query);
    return filter;
}

const std::vector<SavedLink> mixed{saved("a"),
                                   archived("b"),
                                   favorite(saved("c", "Later")),
                                   favorite(archived("d", "Later")),
                                   saved("e", "Archive"),
                                   saved("f", "Favorites"),
                                   saved("g", "All links")};

TEST(LibraryFilterSection, isChosenByTheFiltersName) {
    EXPECT_THAT(shown(filtered("All links"), mixed), ElementsAre("a", "c", "e", "f", "g"));
    EXPECT_THAT(shown(filtered("Favorites"), mixed), ElementsAre("c"));
    EXPECT_THAT(shown(filtered("Archive"), mixed), ElementsAre("b", "d"));
    EXPECT_THAT(shown(filtered("Inbox"), mixed), ElementsAre("a"));
    EXPECT_THAT(shown(filtered("Later"), mixed), ElementsAre("c"));
    EXPECT_THAT(shown(filtered("later"), mixed), IsEmpty());
    EXPECT_THAT(shown(filtered(""), mixed), IsEmpty());
}

TEST(LibraryFilterSection, startsWithAllLinks) {
    EXPECT_EQ(LibraryFilter().filter, "All links");
    EXPECT_TRUE(LibraryFilter().searchEverywhere);
    EXPECT_FALSE(LibraryFilter().hasRefinements());
}

TEST(LibraryFilterSearch, everywhereReachesTheArchiveAndEveryCollection) {
    LibraryFilter filter = searching("chromium");
    EXPECT_THAT(shown(filter, mixed), ElementsAre("a", "b", "c", "d", "e", "f", "g"));
    filter.filter = "Later";
    EXPECT_THAT(shown(filter, mixed), ElementsAre("a", "b", "c", "d", "e", "f", "g"));
}

TEST(LibraryFilterSearch, staysInTheSectionIfAskedTo) {
    LibraryFilter filter = searching("chromium");
    filter.searchEverywhere = false;
    EXPECT_THAT(shown(filter, mixed), ElementsAre("a", "c", "e", "f", "g"));
    filter.filter = "Archive";
    EXPECT_THAT(shown(filter, mixed), ElementsAre("b", "d"));
    filter.query = "later";
    EXPECT_THAT(shown(filter, mixed), ElementsAre("d"));
}

TEST(LibraryFilterSearch, aBlankQueryNeverLeavesTheSection) {
    for (const char* query : {"", "  ", "\t\n", "\u00A0"})
        EXPECT_THAT(shown(searching(query), mixed), ElementsAre("a", "c", "e", "f", "g"));
}

TEST(LibraryFilterSearch, aLinkThatMatchesInCollectionOrBrowserIsShown) {
    EXPECT_THAT(shown(searching("later"), mixed), ElementsAre("c", "d"));
    EXPECT_THAT(shown(searching("inbox chromium"), mixed), ElementsAre("a", "b"));
    EXPECT_THAT(shown(searching("missing"), mixed), IsEmpty());
}

TEST(LibraryFilterRefinements, aSiteIsItsFoldedDomain) {
    const std::vector links{at("a", "https://www.Example.com/x"), at("b", "http://example.com"),
                            at("c", "https://sub.example.com/"), at("d", "no address"),
                            at("e", "https://exämple.com/")};
    LibraryFilter filter;
    filter.selectedDomain = "EXAMPLE.com";
    EXPECT_THAT(shown(filter, links), ElementsAre("a", "b"));
    filter.selectedDomain = "No Address";
    EXPECT_THAT(shown(filter, links), ElementsAre("d"));
    filter.selectedDomain = "";
    EXPECT_THAT(shown(filter, links), IsEmpty());
}

TEST(LibraryFilterRefinements, aTagIsItsFoldedName) {
    const std::vector links{tagged("a", {"x", "Café"}), tagged("b", {"cafe"}), tagged("c", {"caf"}),
                            tagged("d", {})};
    LibraryFilter filter;
    filter.selectedTag = "CAFÉ";
    EXPECT_THAT(shown(filter, links), ElementsAre("a", "b"));
    filter.selectedTag = "";
    EXPECT_THAT(shown(filter, links), IsEmpty());
}

TEST(LibraryFilterRefinements, aNoteOfBlanksIsNone) {
    const std::vector links{noted("a", ""), noted("b", " \n\t\u00A0"), noted("c", " x "),
                            noted("d", "\u200B")};
    LibraryFilter filter;
    filter.notesOnly = true;
    EXPECT_THAT(shown(filter, links), ElementsAre("c", "d"));
}

TEST(LibraryFilterRefinements, allOfThemHaveToPass) {
    SavedLink whole = noted("whole", "note");
    whole.tags = {"tag"};
    LibraryFilter filter = searching("whole");
    filter.selectedTag = "tag";
    filter.selectedDomain = "example.com";
    filter.notesOnly = true;
    EXPECT_TRUE(filter.hasRefinements());
    EXPECT_THAT(shown(filter, {whole}), ElementsAre("whole"));
    for (void (*const spoil)(SavedLink&) :
         {+[](SavedLink& link) { link.tags.clear(); }, +[](SavedLink& link) { link.note.clear(); },
          +[](SavedLink& link) { link.title = "x"; },
          +[](SavedLink& link) { link.url = "https://b.example/whole"; }}) {
        SavedLink link = whole;
        spoil(link);
        if (link.title == "x")
            link.url = "https://example.com/";
        EXPECT_THAT(shown(filter, {link}), IsEmpty()) << link.title << link.url;
    }
}

TEST(LibraryFilterRefinements, eachOfThemCounts) {
    LibraryFilter tag, domain, notes;
    tag.selectedTag = "";
    domain.selectedDomain = "";
    notes.notesOnly = true;
    for (const LibraryFilter& filter : {tag, domain, notes})
        EXPECT_TRUE(filter.hasRefinements());
}

TEST(LibraryFilterDays, withoutAQueryAreTheDaysOfTheCalendar) {
    const std::vector links{timed(saved("a"), -90000), saved("b"), archived("c")};
    const auto days = searching("  ").days(links, now, "");
    ASSERT_EQ(days.size(), 2U);
    EXPECT_EQ(days[0].label, "Today");
    EXPECT_THAT(titles(days[0].links), ElementsAre("b"));
    EXPECT_EQ(days[1].label, "Yesterday");
    EXPECT_THAT(titles(days[1].links), ElementsAre("a"));
    EXPECT_THAT(LibraryFilter().days({}, now, ""), IsEmpty());
}

TEST(LibraryFilterDays, aSearchIsOneGroupOfTheBestMatches) {
    const std::vector links{saved("reading list"), saved("other"), archived("reading")};
    const auto days = searching("reading").days(links, now, "");
    ASSERT_EQ(days.size(), 1U);
    EXPECT_EQ(days[0].label, "Best matches");
    EXPECT_EQ(days[0].id, distantPast);
    EXPECT_THAT(titles(days[0].links), ElementsAre("reading", "reading list"));
}

TEST(LibraryFilterTags, followTheScopeAndNoRefinement) {
    std::vector links{tagged("a", {"one"}), tagged("b", {"two"}), tagged("c", {"one"})};
    links[1].isArchived = true;
    LibraryFilter filter;
    filter.selectedTag = "missing";
    filter.selectedDomain = "missing";
    filter.notesOnly = true;
    EXPECT_THAT(filter.tagSummaries(links), ElementsAre(TagSummary{"one", 2}));
    filter.filter = "Archive";
    EXPECT_THAT(filter.tagSummaries(links), ElementsAre(TagSummary{"two", 1}));
    filter.query = "found nowhere";
    EXPECT_THAT(filter.tagSummaries(links),
                ElementsAre(TagSummary{"one", 2}, TagSummary{"two", 1}));
    filter.searchEverywhere = false;
    EXPECT_THAT(filter.tagSummaries(links), ElementsAre(TagSummary{"two", 1}));
}

std::vector<std::string> suggestions(std::string query, const std::vector<SavedLink>& links) {
    std::vector<std::string> names;
    for (const TagSummary& each : searching(std::move(query)).tagSearchSuggestions(links))
        names.push_back(each.name);
    return names;
}

TEST(LibraryFilterTagSearch, offersTheFirst8TagsByName) {
    const std::vector links{tagged("", {"t9", "t10", "t1", "t2", "t3"}),
                            tagged("", {"t8", "t7", "t6", "t5", "t4"})};
    for (const char* query : {"#", "# ", " #\n", "#t", "#T"})
        EXPECT_THAT(suggestions(query, links),
                    ElementsAre("t1", "t2", "t3", "t4", "t5", "t6", "t7", "t8"))
            << query;
    EXPECT_THAT(suggestions("#1", links), ElementsAre("t1", "t10"));
}

TEST(LibraryFilterTagSearch, onlyAQueryThatBeginsWithAHashCounts) {
    const std::vector links{tagged("", {"tag"})};
    EXPECT_THAT(suggestions("", links), IsEmpty());
    EXPECT_THAT(suggestions("tag", links), IsEmpty());
    EXPECT_THAT(suggestions("x #tag", links), IsEmpty());
    EXPECT_THAT(suggestions(" #tag", links), ElementsAre("tag"));
    EXPECT_THAT(suggestions("#tag x", links), IsEmpty());
    EXPECT_THAT(suggestions("##tag", links), IsEmpty());
}

TEST(LibraryFilterTagSearch, comparesFoldedNamesAndCountsTheWholeLibrary) {
    std::vector links{tagged("", {"Café"}), tagged("", {"cafe", "CAFETERIA"})};
    links[1].isArchived = true;
    EXPECT_THAT(searching("#cafÉ").tagSearchSuggestions(links),
                ElementsAre(TagSummary{"Café", 2}, TagSummary{"CAFETERIA", 1}));
    // The blank belongs to what is sought.
    EXPECT_THAT(suggestions("# cafe", links), IsEmpty());
}

TEST(LibraryFilterTitle, namesTheScope) {
    LibraryFilter filter = filtered("Archive");
    EXPECT_EQ(filter.searchScopeTitle(), "Everywhere");
    filter.searchEverywhere = false;
    EXPECT_EQ(filter.searchScopeTitle(), "Archive");
    filter.filter = "All links";
    EXPECT_EQ(filter.searchScopeTitle(), "Library");
    filter.filter = "Read later";
    EXPECT_EQ(filter.searchScopeTitle(), "Read later");
}

} // namespace
} // namespace brinmoor

// The links found while a query is typed are those that the whole query finds in the whole library.

#include "core/search/FilteredLibrary.h"

#include "tests/core/Generated.h"
#include "tests/core/UserLocale.h"

#include <gtest/gtest.h>

#include <array>

namespace brinmoor {
namespace {

using tests::Generated;
using tests::UserLocale;

const Instant now{8e8};

/// Characters that fold into others, into more than one, or into nothing; tags and blanks.
const std::vector<std::string> pieces{"a", "b",  "A", "#", "#", " ",      "ä", "a\u0308", "ß",
                                      "s", "ss", "İ", "i", "ı", "\u0301", "ﬁ", "f",       "1"};

std::shared_ptr<const Library> someLibrary(Generated& generated) {
    auto library = std::make_shared<Library>();
    for (std::size_t count = generated.below(30); count > 0; --count) {
        SavedLink link;
        link.url = "https://example.com/" + generated.textOf(pieces, 4);
        link.title = generated.textOf(pieces, 6);
        link.note = generated.textOf(pieces, 3);
        link.collection = generated.textOf(pieces, 2);
        link.browser = generated.textOf(pieces, 2);
        for (std::size_t tags = generated.below(3); tags > 0; --tags)
            link.tags.push_back(generated.textOf(pieces, 2));
        link.isArchived = generated.below(4) == 0;
        link.isFavorite = generated.below(3) == 0;
        link.createdAt = {now.seconds - double(generated.below(5)) * 40000};
        library->links.push_back(link);
    }
    return library;
}

void change(LibraryFilter& filter, Generated& generated) {
    switch (generated.below(12)) {
    case 0:
        filter.query.clear();
        break;
    case 1:
        filter.filter = generated.oneOf(
            std::array{LibraryFilter::allLinks, LibraryFilter::archive, LibraryFilter::favorites});
        break;
    case 2:
        filter.searchEverywhere = !filter.searchEverywhere;
        break;
    case 3:
        filter.selectedTag =
            filter.selectedTag ? std::nullopt : std::optional(generated.textOf(pieces, 2));
        break;
    case 4:
        filter.notesOnly = !filter.notesOnly;
        break;
    case 5:
        filter.query = generated.oneOf(pieces) + filter.query;
        break;
    default:
        filter.query += generated.oneOf(pieces);
    }
}

void expectSame(const std::vector<LinkDay>& found, const std::vector<LinkDay>& wanted) {
    ASSERT_EQ(found.size(), wanted.size());
    for (std::size_t at = 0; at < found.size(); ++at) {
        EXPECT_EQ(found[at].id, wanted[at].id);
        EXPECT_EQ(found[at].label, wanted[at].label);
        EXPECT_EQ(found[at].links, wanted[at].links);
    }
}

TEST(FilteredLibraryTest, showsWhatTheFilterAloneShowsHoweverItCameAbout) {
    for (const char* locale : {"en_US", "tr_TR"}) {
        const UserLocale user(locale);
        tests::forSeeds(60, [](Generated& generated) {
            FilteredLibrary filtered;
            std::shared_ptr<const Library> library = someLibrary(generated);
            LibraryFilter filter;
            for (int step = 0; step < 60; ++step) {
                change(filter, generated);
                if (generated.oneIn(30))
                    library = someLibrary(generated);
                SCOPED_TRACE("query \"" + filter.query + "\"");
                expectSame(filtered.days(filter, library, now, "UTC"),
                           filter.days(library->links, now, "UTC"));
            }
        });
    }
}

TEST(FilteredLibraryTest, aQueryThatGoesOnNarrowsAndOneThatTurnsIntoATagDoesNot) {
    const auto narrows = [](const char* query, const char* before) {
        LibraryFilter shorter;
        shorter.query = before;
        LibraryFilter longer;
        longer.query = query;
        return longer.narrows(shorter);
    };
    EXPECT_TRUE(narrows("des", "de"));
    EXPECT_TRUE(narrows("design tool", "design"));
    EXPECT_TRUE(narrows("DESIGN", "sig"));
    EXPECT_TRUE(narrows("#design", "sig"));
    EXPECT_FALSE(narrows("de", "des"));
    EXPECT_FALSE(narrows("#design", "#des"));
    EXPECT_FALSE(narrows("#d", "#"));
    EXPECT_FALSE(narrows("a", ""));
    EXPECT_FALSE(narrows("", "a"));
    EXPECT_FALSE(narrows("tool", "design"));
}

} // namespace
} // namespace brinmoor

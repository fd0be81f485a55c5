#include "tests/core/library/SampleLibrary.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using Texts = std::vector<std::string>;

Library tagged(std::vector<Texts> tags) {
    Library library;
    for (Texts& list : tags)
        library.links.push_back(tests::linkTo("https://a.org/", std::move(list)));
    return library;
}

TEST(LibraryRenameTag, needsAnOldAndANewName) {
    Library library = tagged({{"a"}});
    for (const auto& [old, to] : {std::pair{"a", " # # "}, {"a", ""}, {"  ", "b"}, {"", "b"}})
        EXPECT_EQ(library.renameTag(old, to), 0U);
    EXPECT_EQ(library.links[0].tags, Texts{"a"});
}

TEST(LibraryRenameTag, mergesWithATagThatHasTheNewNameInAnotherCase) {
    Library library = tagged({{"A", "B"}});
    EXPECT_EQ(library.renameTag("A", "b"), 1U);
    EXPECT_EQ(library.links[0].tags, Texts{"b"});
}

TEST(LibraryRenameTag, countsOnlyWhatReallyChanges) {
    Library library = tagged({{"a"}});
    EXPECT_EQ(library.renameTag("a", "a"), 0U);
    library = tagged({{"A"}});
    EXPECT_EQ(library.renameTag("a", "a"), 1U);
    EXPECT_EQ(library.links[0].tags, Texts{"a"});
}

TEST(LibraryRenameTag, replacesEverySpellingAndKeepsTheOthersInPlace) {
    Library library = tagged({{"x", "Résumé", "y", "RESUME"}, {"other"}, {"resume"}});
    EXPECT_EQ(library.renameTag(" résumé\n", "#cv"), 2U);
    EXPECT_EQ(library.links[0].tags, (Texts{"x", "cv", "y"}));
    EXPECT_EQ(library.links[1].tags, Texts{"other"});
    EXPECT_EQ(library.links[2].tags, Texts{"cv"});
}

TEST(LibraryDeleteTag, removesEverySpelling) {
    Library library = tagged({{"Café", "x", "CAFE"}, {"cafe"}, {"tea"}});
    EXPECT_EQ(library.deleteTag("café"), 2U);
    EXPECT_EQ(library.links[0].tags, Texts{"x"});
    EXPECT_EQ(library.links[1].tags, Texts{});
    EXPECT_EQ(library.links[2].tags, Texts{"tea"});
}

TEST(LibraryDeleteTag, takesTheTagAsItStands) {
    Library library = tagged({{"cafe", " tea"}});
    EXPECT_EQ(library.deleteTag(" cafe"), 0U);
    EXPECT_EQ(library.deleteTag(" Tea"), 1U);
    EXPECT_EQ(Library().deleteTag("cafe"), 0U);
}

} // namespace
} // namespace brinmoor

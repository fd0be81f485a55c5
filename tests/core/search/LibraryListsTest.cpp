#include "core/search/LibraryLists.h"

#include "core/text/Characters.h"
#include "tests/core/Generated.h"
#include "tests/core/UserLocale.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brinmoor::LibraryLists {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using tests::Generated;
using tests::UserLocale;

std::vector<SavedLink> linksTo(const std::vector<std::string>& urls) {
    std::vector<SavedLink> links;
    for (const std::string& url : urls) {
        links.emplace_back().url = url;
        links.back().isArchived = links.size() % 2 == 0;
    }
    return links;
}

TEST(LibraryListsDomains, areEachOnceByName) {
    EXPECT_THAT(domainOptions({}), IsEmpty());
    EXPECT_THAT(domainOptions(
                    linksTo({"https://b10.example/x", "https://www.a.example/", "http://b9.example",
                             "https://a.example/y?z", "https://b10.example/"})),
                ElementsAre("a.example", "b9.example", "b10.example"));
}

TEST(LibraryListsDomains, emptyOnesAreLeftOutAndTextsThatAreNoAddressStay) {
    EXPECT_THAT(domainOptions(linksTo({"", "no address", "mailto:a@b.example"})),
                ElementsAre("mailto:a@b.example", "no address"));
}

TEST(LibraryListsDomains, oneLetterCaseIsNotTheOther) {
    EXPECT_THAT(domainOptions(linksTo({"https://B.example", "https://b.example"})),
                ElementsAre("b.example", "B.example"));
}

TEST(LibraryListsDomains, areEachLinksOnceAndInOrderWhateverTheLibrary) {
    const std::vector<std::string> hosts{"a",  "B", "www.a", "a1",  "a2",       "a10",
                                         "éa", "z", "日本",  "x-y", "mwww.site"};
    tests::forSeeds(200, [&](Generated& generated) {
        std::vector<std::string> urls;
        for (std::size_t left = generated.below(60); left > 0; --left)
            urls.push_back("https://" + generated.oneOf(hosts) + ".example/" +
                           std::to_string(generated.below(3)));
        const auto links = linksTo(urls);
        const auto domains = domainOptions(links);
        for (const SavedLink& link : links)
            EXPECT_EQ(std::ranges::count(domains, link.domain()), 1) << link.url;
        EXPECT_LE(domains.size(), links.size());
        EXPECT_TRUE(std::ranges::is_sorted(
            domains, [](const auto& a, const auto& b) { return text::compareNames(a, b) < 0; }));
    });
}

TEST(LibraryListsTags, areThoseOfTheWholeLibrary) {
    std::vector<SavedLink> links(2);
    links[0].tags = {"b", "a10"};
    links[1].tags = {"B", "a9"};
    links[1].isArchived = true;
    EXPECT_THAT(allTags(links), ElementsAre("a9", "a10", "b"));
}

TEST(LibraryListsIds, areThoseOfActiveAndOfArchivedLinks) {
    auto links = linksTo({"a", "b", "c"});
    for (std::uint8_t at = 0; at < 3; ++at)
        links[at].id.bytes[0] = at;
    EXPECT_THAT(activeIDs(links), UnorderedElementsAre(links[0].id, links[2].id));
    EXPECT_THAT(archivedIDs(links), UnorderedElementsAre(links[1].id));
    EXPECT_THAT(activeIDs({}), IsEmpty());
}

} // namespace
} // namespace brinmoor::LibraryLists

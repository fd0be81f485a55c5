#include "core/library/LibraryFile.h"
#include "core/text/Characters.h"
#include "tests/core/library/SampleLibrary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

namespace brinmoor {
namespace {

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    std::size_t below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }

    template <std::size_t size>
    std::string oneOf(const std::array<std::string_view, size>& all) {
        return std::string(all[below(size)]);
    }
    template <std::size_t size>
    std::string textOf(const std::array<std::string_view, size>& pieces, std::size_t most) {
        std::string text;
        for (std::size_t left = below(most + 1); left > 0; --left)
            text += oneOf(pieces);
        return text;
    }

private:
    std::mt19937_64 engine_;
};

constexpr std::array<std::string_view, 2> schemes{"http", "https"};
constexpr std::array<std::string_view, 4> hosts{"a.org", "www.a.org", "b.org", "xn--tda.org"};
constexpr std::array<std::string_view, 4> ports{"", "", ":80", ":8080"};
constexpr std::array<std::string_view, 6> paths{"", "/", "/a", "/A", "/a/", "//"};
constexpr std::array<std::string_view, 4> queries{"", "?", "?q=1", "?Q=1"};
constexpr std::array<std::string_view, 4> fragments{"", "#", "#f", "#F"};

/// An address in parts, in a spelling of its own.
struct Address {
    std::array<std::string, 6> parts;

    explicit Address(Random& random)
        : parts{random.oneOf(schemes), random.oneOf(hosts),   random.oneOf(ports),
                random.oneOf(paths),   random.oneOf(queries), random.oneOf(fragments)} {}

    [[nodiscard]] std::string spelled(Random& random) const {
        std::string scheme = parts[0];
        std::string host = parts[1];
        for (std::string* part : {&scheme, &host})
            for (char& unit : *part)
                if (unit >= 'a' && unit <= 'z' && random.oneIn(4))
                    unit = static_cast<char>(unit - 'a' + 'A');
        return scheme + "://" + host + parts[2] + parts[3] + parts[4] + parts[5];
    }
    /// What tells pages apart.
    [[nodiscard]] std::array<std::string, 6> page() const {
        auto page = parts;
        if (page[3] == "/")
            page[3].clear();
        return page;
    }
};

TEST(LibraryIdentityLaw,
     twoAddressesAreOnePageExactlyWhenTheyDifferInCaseOfSchemeAndHostOrARootPath) {
    constexpr std::uint64_t seed = 73;
    Random random(seed);
    std::size_t equal = 0;
    for (int round = 0; round < 100'000; ++round) {
        const Address a(random);
        const Address b = random.oneIn(2) ? Address(random) : a;
        const std::string one = a.spelled(random);
        const std::string other = b.spelled(random);
        const bool isOnePage = a.page() == b.page();
        equal += isOnePage ? 1 : 0;
        ASSERT_EQ(Library::identity(one) == Library::identity(other), isOnePage)
            << one << ' ' << other << " seed " << seed;
    }
    EXPECT_GT(equal, 10'000U);
}

TEST(LibraryIdentityLaw, theIdentityOfAnIdentityIsItself) {
    constexpr std::uint64_t seed = 79;
    Random random(seed);
    for (int round = 0; round < 20'000; ++round) {
        const std::string identity = Library::identity(Address(random).spelled(random));
        ASSERT_EQ(Library::identity(identity), identity) << "seed " << seed;
    }
}

constexpr std::array<std::string_view, 30> addressPieces{
    "https://", "http://", "HTTP:", "//", "/",  "?",   "#",    "%",  "%41",  "%zz",
    "[::1]",    "a.org",   "Ä.org", ":",  "@",  "80",  "..",   "日", "\\\\", "|",
    "{x}",      "\"",      " ",     "\t", "\n", "[]=", "\xFF", "^",  "`",    "é"};

TEST(ValidatedURLLaw, aCanonicalAddressIsAFixedPoint) {
    constexpr std::uint64_t seed = 83;
    Random random(seed);
    std::size_t valid = 0;
    for (int round = 0; round < 100'000; ++round) {
        const std::string text = (random.oneIn(4) ? "" : random.oneOf(schemes) + "://" + "a.org") +
                                 random.textOf(addressPieces, 8);
        const auto address = Library::validatedURL(text);
        if (!address)
            continue;
        ++valid;
        const auto again = Library::validatedURL(address->string());
        ASSERT_TRUE(again && *again == *address) << text << " seed " << seed;
        ASSERT_EQ(Library::identity(text::trimmed(text)), Library::identity(address->string()))
            << text;
    }
    EXPECT_GT(valid, 20'000U);
}

SavedLink incomingLink(Random& random) {
    SavedLink link = tests::linkTo(random.oneIn(8) ? random.textOf(addressPieces, 4)
                                                   : Address(random).spelled(random));
    link.title = random.oneIn(3) ? "  " : "Title";
    link.collection = random.oneIn(2) ? "Inbox" : "Another " + std::to_string(random.below(3));
    return link;
}

std::vector<SavedLink> incomingLinks(Random& random, std::size_t most) {
    std::vector<SavedLink> links;
    for (std::size_t left = random.below(most + 1); left > 0; --left)
        links.push_back(incomingLink(random));
    return links;
}

std::multiset<std::string> identitiesOf(const std::vector<SavedLink>& links) {
    std::multiset<std::string> identities;
    for (const SavedLink& link : links)
        identities.insert(Library::identity(link.url));
    return identities;
}

TEST(LibraryInsertLaw, neverChangesWhatWasThereAndNeverLosesAnAcceptedLink) {
    constexpr std::uint64_t seed = 89;
    Random random(seed);
    for (int round = 0; round < 5'000; ++round) {
        Library library;
        library.insert(incomingLinks(random, 12));
        const Library before = library;
        const auto incoming = incomingLinks(random, 12);
        const std::size_t added = library.insert(incoming);

        ASSERT_EQ(library.links.size(), before.links.size() + added);
        ASSERT_TRUE(std::equal(before.links.begin(), before.links.end(),
                               library.links.begin() + static_cast<std::ptrdiff_t>(added)))
            << "seed " << seed;
        ASSERT_TRUE(std::equal(before.collections.begin(), before.collections.end(),
                               library.collections.begin()));
        std::set<std::string> expected;
        for (const SavedLink& link : before.links)
            expected.insert(Library::identity(link.url));
        for (const SavedLink& link : incoming)
            if (const auto address = Library::validatedURL(link.url))
                expected.insert(Library::identity(address->string()));
        const auto present = identitiesOf(library.links);
        ASSERT_TRUE(std::equal(present.begin(), present.end(), expected.begin(), expected.end()))
            << "seed " << seed;
        for (const SavedLink& link : library.links) {
            ASSERT_FALSE(text::trimmed(link.title).empty());
            ASSERT_NE(
                std::find(library.collections.begin(), library.collections.end(), link.collection),
                library.collections.end());
        }
        Library again = library;
        ASSERT_EQ(again.insert(incoming), 0U);
        ASSERT_EQ(again, library);
    }
}

constexpr std::array<std::string_view, 12> tagPieces{
    "#", "##", " ", "\t", "a", "A", "é", "É", "e\u0301", "👩‍👧", "word", "ß"};

/// The rule trims blanks, then hash signs, then cuts: a blank behind a hash sign stays, and the cut
/// can lay bare another of either.
bool hasLeftoverAtAnEnd(const std::string& tag) {
    return text::trimmed(tag) != tag || tag.starts_with('#') || tag.ends_with('#');
}

std::vector<std::string> randomTags(Random& random) {
    std::vector<std::string> tags;
    for (std::size_t left = random.below(12); left > 0; --left)
        tags.push_back(random.textOf(tagPieces, random.oneIn(20) ? 80 : 5));
    return tags;
}

TEST(NormalizedTagsLaw, aSecondTimeChangesNothingButBlanksAndHashSignsThatItsStepsLeave) {
    constexpr std::uint64_t seed = 97;
    Random random(seed);
    std::size_t stable = 0;
    for (int round = 0; round < 50'000; ++round) {
        const auto once = SavedLink::normalizedTags(randomTags(random));
        if (std::any_of(once.begin(), once.end(), hasLeftoverAtAnEnd))
            continue;
        ++stable;
        ASSERT_EQ(SavedLink::normalizedTags(once), once) << "seed " << seed;
    }
    EXPECT_GT(stable, 10'000U);
}

TEST(NormalizedTagsLaw, aListThatIsGivenAwayGetsTheSame) {
    constexpr std::uint64_t seed = 101;
    constexpr std::array<std::string_view, 9> plainPieces{"a", "A", "b", "-", " ",
                                                          "9", "#", "é", "@"};
    Random random(seed);
    for (int round = 0; round < 50'000; ++round) {
        std::vector<std::string> tags;
        for (std::size_t left = random.below(12); left > 0; --left)
            tags.push_back(random.textOf(plainPieces, random.oneIn(20) ? 80 : 4));
        const auto expected = SavedLink::normalizedTags(tags);
        ASSERT_EQ(SavedLink::normalizedTags(std::move(tags)), expected) << "seed " << seed;
    }
}

TEST(EncodedLibraryLaw, readBackIsEqualButForTheTagsThatTheRuleChangesTwice) {
    constexpr std::uint64_t seed = 103;
    Random random(seed);
    for (int round = 0; round < 3'000; ++round) {
        Library library;
        for (std::size_t left = random.below(6); left > 0; --left)
            library.links.emplace_back().tags = SavedLink::normalizedTags(randomTags(random));
        const auto decoded = decodeLibrary(encodeLibrary(library));
        ASSERT_TRUE(decoded.ok()) << "seed " << seed;
        for (SavedLink& link : library.links)
            if (std::any_of(link.tags.begin(), link.tags.end(), hasLeftoverAtAnEnd))
                link.tags = SavedLink::normalizedTags(link.tags);
        ASSERT_EQ(*decoded, library) << "seed " << seed;
    }
}

} // namespace
} // namespace brinmoor

#include "core/library/LibraryFile.h"
#include "tests/core/library/SampleLibrary.h"

#include <gmock/gmock.h>

#include <bit>
#include <limits>
#include <map>

namespace brinmoor {
namespace {

using Cause = FileError::Cause;
using Members = std::map<std::string, std::string>;
using ::testing::ElementsAre;

Members linkMembers() {
    return {{"browser", R"("Chrome")"},
            {"collection", R"("Inbox")"},
            {"createdAt", "785000000.25"},
            {"iconURL", R"("https://a.org/i.png")"},
            {"id", R"("01234567-89AB-CDEF-0123-456789ABCDEF")"},
            {"importance", R"("important")"},
            {"isArchived", "false"},
            {"isFavorite", "true"},
            {"note", R"("a note")"},
            {"tags", R"(["one", "two"])"},
            {"title", R"("A title")"},
            {"url", R"("https://a.org/")"}};
}

std::string objectOf(const Members& members) {
    std::string text = "{";
    for (const auto& [key, value] : members)
        text.append(text.size() > 1 ? "," : "").append("\"" + key + "\":" + value);
    return text + "}";
}

std::string documentOf(const std::string& link, const std::string& version = "1") {
    return R"({"version":)" + version + R"(,"links":[)" + link + R"(],"collections":["Inbox"]})";
}

Result<Library, FileError> decodedWith(const std::string& key, const std::string& value) {
    auto members = linkMembers();
    members[key] = value;
    return decodeLibrary(documentOf(objectOf(members)));
}

Result<Library, FileError> decodedWithout(const std::string& key) {
    auto members = linkMembers();
    members.erase(key);
    return decodeLibrary(documentOf(objectOf(members)));
}

TEST(EncodedLibrary, isPrettyPrintedWithSortedKeysAndEscapedSlashes) {
    Library library;
    library.collections = {"Inbox"};
    SavedLink link("https://a.org/", "A \"title\"\\ \t\x01 \x7f é", "Chrome", "Inbox",
                   *Uuid::parse("01234567-89ab-cdef-0123-456789abcdef"), Instant{785000000.25});
    library.links.push_back(link);
    link.iconURL = "i/c";
    link.importance = LinkImportance::notNeeded;
    link.tags = {"one", "two"};
    link.createdAt.seconds = 785000000;
    library.links.push_back(link);
    EXPECT_EQ(encodeLibrary(library), R"({
  "collections" : [
    "Inbox"
  ],
  "links" : [
    {
      "browser" : "Chrome",
      "collection" : "Inbox",
      "createdAt" : 785000000.25,
      "id" : "01234567-89AB-CDEF-0123-456789ABCDEF",
      "isArchived" : false,
      "isFavorite" : false,
      "note" : "",
      "tags" : [

      ],
      "title" : "A \"title\"\\ \t\u0001 )"
                                      "\x7f"
                                      R"( é",
      "url" : "https:\/\/a.org\/"
    },
    {
      "browser" : "Chrome",
      "collection" : "Inbox",
      "createdAt" : 785000000,
      "iconURL" : "i\/c",
      "id" : "01234567-89AB-CDEF-0123-456789ABCDEF",
      "importance" : "notNeeded",
      "isArchived" : false,
      "isFavorite" : false,
      "note" : "",
      "tags" : [
        "one",
        "two"
      ],
      "title" : "A \"title\"\\ \t\u0001 )"
                                      "\x7f"
                                      R"( é",
      "url" : "https:\/\/a.org\/"
    }
  ],
  "version" : 1
})");
}

TEST(EncodedLibrary, readBackIsEqual) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        const Library library = tests::randomLibrary(seed, seed * 3);
        const auto decoded = decodeLibrary(encodeLibrary(library));
        ASSERT_TRUE(decoded.ok()) << "seed " << seed << ' ' << decoded.error().description();
        ASSERT_EQ(*decoded, library) << "seed " << seed;
    }
}

TEST(EncodedLibrary, keepsEveryPointInTimeToTheBit) {
    constexpr std::uint64_t seed = 11;
    std::mt19937_64 random(seed);
    using Limits = std::numeric_limits<double>;
    Library library;
    std::vector<double> numbers{0.0,
                                -0.0,
                                1e15,
                                1e16,
                                1e17,
                                1e22,
                                9007199254740993.0,
                                12345678901234567000.0,
                                19345678901234567000.0,
                                123456789012345670000.0,
                                Limits::min(),
                                Limits::denorm_min(),
                                Limits::max(),
                                Limits::lowest(),
                                Limits::epsilon(),
                                -0.1};
    for (int count = 0; count < 20000; ++count)
        numbers.push_back(tests::randomFiniteNumber(random));
    for (const double number : numbers)
        library.links.emplace_back().createdAt.seconds = number;
    const auto decoded = decodeLibrary(encodeLibrary(library));
    ASSERT_TRUE(decoded.ok());
    for (std::size_t at = 0; at < numbers.size(); ++at)
        ASSERT_EQ(std::bit_cast<std::uint64_t>(decoded->links[at].createdAt.seconds),
                  std::bit_cast<std::uint64_t>(numbers[at]))
            << numbers[at] << " seed " << seed;
}

TEST(EncodedLibrary, isReadableEvenIfATextIsNotUtf8) {
    Library library;
    library.links.emplace_back().title = "good \xC3\x28 \xE4\xBD";
    library.links.back().note = std::string(100'000, 'x') + "\xFF" + "é";
    const auto decoded = decodeLibrary(encodeLibrary(library));
    ASSERT_TRUE(decoded.ok());
    EXPECT_EQ(decoded->links[0].title, "good \uFFFD( \uFFFD\uFFFD");
    EXPECT_EQ(decoded->links[0].note, std::string(100'000, 'x') + "\uFFFDé");
}

TEST(EncodedLibrary, holdsTextsLargerThanTheWriterKeeps) {
    Library library;
    std::string note;
    while (note.size() < 2'000'000)
        note += "é/\x02\"漢👩‍👧 ";
    library.links.emplace_back().note = note;
    const auto decoded = decodeLibrary(encodeLibrary(library));
    ASSERT_TRUE(decoded.ok());
    EXPECT_EQ(*decoded, library);
}

TEST(DecodedLibrary, takesADocumentOfAnotherProgram) {
    const auto decoded = decodeLibrary(documentOf(objectOf(linkMembers())));
    ASSERT_TRUE(decoded.ok());
    const SavedLink& link = decoded->links.at(0);
    EXPECT_EQ(link.url, "https://a.org/");
    EXPECT_EQ(link.iconURL, "https://a.org/i.png");
    EXPECT_EQ(link.importance, LinkImportance::important);
    EXPECT_EQ(link.createdAt, Instant{785000000.25});
    EXPECT_THAT(link.tags, ElementsAre("one", "two"));
    EXPECT_TRUE(link.isFavorite && !link.isArchived);
    EXPECT_THAT(decoded->collections, ElementsAre("Inbox"));
}

TEST(DecodedLibrary, takesNumbersHoweverTheyAreSpelled) {
    const std::pair<const char*, double> cases[] = {
        {"785000000", 785000000},
        {"7.85e8", 785000000},
        {"785E+6", 785000000},
        {"-5", -5},
        {"0", 0},
        {"1e-3", 0.001},
        {"18446744073709551615", 18446744073709551615.0},
        {"9007199254740993", 9007199254740992},
    };
    for (const auto& [text, number] : cases) {
        const auto decoded = decodedWith("createdAt", text);
        ASSERT_TRUE(decoded.ok()) << text;
        EXPECT_EQ(decoded->links[0].createdAt.seconds, number) << text;
    }
    for (const char* version : {"1", "1.0", "1e0", "10e-1"})
        EXPECT_TRUE(decodeLibrary(documentOf("", version)).ok()) << version;
}

TEST(DecodedLibrary, lacksNothingButIconTagsAndImportance) {
    for (const auto& [key, value] : linkMembers()) {
        const bool isTolerated = key == "iconURL" || key == "tags" || key == "importance";
        for (const auto& decoded : {decodedWithout(key), decodedWith(key, "null")}) {
            ASSERT_EQ(decoded.ok(), isTolerated) << key;
            if (!isTolerated) {
                EXPECT_EQ(decoded.error().cause, Cause::wrongShape) << key;
            }
        }
    }
    const auto bare = decodedWithout("tags");
    EXPECT_TRUE(bare->links[0].tags.empty());
    EXPECT_THAT(encodeLibrary(*bare), ::testing::HasSubstr("\"tags\" : [\n\n      ]"));
}

TEST(DecodedLibrary, refusesValuesOfAnotherType) {
    for (const auto& [key, value] : linkMembers())
        for (const char* other : {"true", "12", R"("text")", "[1]", "{}"}) {
            const bool isNumber = key == "createdAt";
            const bool isBoolean = key == "isArchived" || key == "isFavorite";
            const bool isText =
                !isNumber && !isBoolean && key != "tags" && key != "id" && key != "importance";
            const bool fits = (isNumber && other[0] == '1') || (isBoolean && other[0] == 't') ||
                              (isText && other[0] == '"');
            ASSERT_EQ(decodedWith(key, other).ok(), fits) << key << ' ' << other;
        }
}

TEST(DecodedLibrary, refusesBadIdsAndUnknownImportance) {
    for (const char* id : {R"("")", R"("0123456789ABCDEF0123456789ABCDEF")", R"("not an id")"})
        EXPECT_FALSE(decodedWith("id", id).ok()) << id;
    for (const char* importance : {R"("")", R"("Important")", R"("veryImportant")"})
        EXPECT_EQ(decodedWith("importance", importance).error().cause, Cause::wrongShape);
    EXPECT_TRUE(decodedWith("id", R"("01234567-89ab-cdef-0123-456789abcdef")").ok());
}

TEST(DecodedLibrary, normalisesTheTagsThatItReads) {
    const auto decoded = decodedWith("tags", R"(["#Word", "  word  ", "##", ""])");
    ASSERT_TRUE(decoded.ok());
    EXPECT_THAT(decoded->links[0].tags, ElementsAre("Word"));
}

TEST(DecodedLibrary, passesOverUnknownKeysAndReadsTheLastOfARepeatedOne) {
    auto members = linkMembers();
    members["addedLater"] = R"({"a":[1,null,{"b":2}]})";
    std::string link = objectOf(members);
    link.insert(link.size() - 1, R"(,"title":1,"title":"The last")");
    const auto decoded = decodeLibrary(documentOf(link));
    ASSERT_TRUE(decoded.ok());
    EXPECT_EQ(decoded->links[0].title, "The last");
    EXPECT_FALSE(decodeLibrary(R"({"version":1,"links":[],"collections":[],"version":2})").ok());
}

TEST(DecodedLibrary, passesOverNumbersOfAnySizeUnderUnknownKeys) {
    const std::string manyDigits(400, '9');
    for (const std::string& number :
         {std::string("18446744073709551616"), std::string("-9223372036854775809"),
          std::string("123456789012345678901234567890"), manyDigits, "-" + manyDigits,
          manyDigits + ".5e+3", std::string("1e999"), std::string("1E-999")}) {
        EXPECT_TRUE(decodedWith("later", number).ok()) << number;
        EXPECT_TRUE(decodedWith("later", "[{\"a\":" + number + "}," + number + "]").ok()) << number;
    }
}

TEST(DecodedLibrary, leavesTextsAsTheyAreWhereNumbersAreLarge) {
    auto members = linkMembers();
    members["later"] = "123456789012345678901234567890";
    members["note"] = R"("\\\"1e999 123456789012345678901234567890\\")";
    const auto decoded = decodeLibrary(documentOf(objectOf(members)));
    ASSERT_TRUE(decoded.ok());
    EXPECT_EQ(decoded->links[0].note, "\\\"1e999 123456789012345678901234567890\\");
}

TEST(DecodedLibrary, takesALargeWholeNumberForAPointInTimeAndNoneThatIsNoNumberThere) {
    EXPECT_EQ(decodedWith("createdAt", "123456789012345678901")->links[0].createdAt.seconds,
              123456789012345678901.0);
    for (const char* key : {"createdAt", "importance", "iconURL", "tags", "title", "isArchived"})
        EXPECT_EQ(decodedWith(key, "1e999").error().cause, Cause::wrongShape) << key;
    EXPECT_EQ(decodeLibrary(documentOf("", "123456789012345678901")).error().cause,
              Cause::unknownVersion);
}

TEST(DecodedLibrary, refusesNumbersThatAreNone) {
    const std::string digits = "123456789012345678901234567890";
    for (const std::string& number :
         {"0" + digits, digits + ".", digits + "e", digits + "e+", "." + digits, "+" + digits,
          "--" + digits, digits + "-1", std::string("01e999"), digits + "x", std::string("-"),
          "- " + digits})
        EXPECT_EQ(decodedWith("later", number).error().cause, Cause::notJson) << number;
}

TEST(DecodedLibrary, needsItsThreeKeysAtTheTop) {
    for (const char* text :
         {R"({"version":1,"links":[]})", R"({"version":1,"collections":[]})",
          R"({"links":[],"collections":[]})", R"({"version":"1","links":[],"collections":[]})",
          R"({"version":null,"links":[],"collections":[]})",
          R"({"version":1,"links":{},"collections":[]})",
          R"({"version":1,"links":null,"collections":[]})",
          R"({"version":1,"links":[null],"collections":[]})",
          R"({"version":1,"links":[],"collections":[1]})",
          R"({"version":1,"links":[],"collections":null})", "[]", "1", "null", R"("text")"}) {
        const auto decoded = decodeLibrary(text);
        ASSERT_FALSE(decoded.ok()) << text;
        EXPECT_EQ(decoded.error().cause, Cause::wrongShape) << text;
    }
}

TEST(DecodedLibrary, ofAnotherVersionIsRefusedWhateverItsShape) {
    for (const char* version : {"2", "0", "-1", "1.5", "1e300"})
        EXPECT_EQ(decodeLibrary(documentOf("", version)).error().cause, Cause::unknownVersion);
    EXPECT_EQ(decodeLibrary(R"({"version":2,"entries":{}})").error().cause, Cause::unknownVersion);
}

TEST(DecodedLibrary, refusesWhatIsNoJson) {
    const std::string good = documentOf(objectOf(linkMembers()));
    for (const std::string& text :
         {std::string(), std::string("   "), std::string("{"), good + "x", good + good,
          good.substr(0, good.size() - 1), "\xEF\xBB\xBF" + good, documentOf("1,"),
          documentOf("01"), documentOf("'a'"), documentOf("\"\t\""), documentOf("\"\\ud800\""),
          documentOf("\"\xFF\""), documentOf("NaN"), documentOf("// comment\n"),
          std::string(100'000, '[')})
        EXPECT_EQ(decodeLibrary(text).error().cause, Cause::notJson) << text.substr(0, 200);
}

TEST(DecodedLibrary, refusesSyntaxErrorsInsideUnknownValuesToo) {
    auto members = linkMembers();
    members["later"] = "[1,]";
    EXPECT_EQ(decodeLibrary(documentOf(objectOf(members))).error().cause, Cause::notJson);
}

TEST(DecodedLibrary, cutAnywhereIsRefused) {
    const std::string whole = encodeLibrary(tests::randomLibrary(5, 3));
    for (std::size_t size = 0; size < whole.size(); ++size)
        ASSERT_FALSE(decodeLibrary(std::string_view(whole).substr(0, size)).ok()) << size;
}

} // namespace
} // namespace brinmoor

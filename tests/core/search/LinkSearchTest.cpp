#include "core/search/LinkSearch.h"

#include "core/library/SavedLink.h"
#include "tests/core/UserLocale.h"

#include <gmock/gmock.h>

#include <optional>

namespace brinmoor {
namespace {

using tests::UserLocale;

struct Texts {
    std::string title = "";
    std::string url = "";
    std::string note = "";
    std::vector<std::string> tags = {};
    std::string extra = "";
};

std::optional<int> scoreOf(std::string_view query, const Texts& texts) {
    return LinkSearch::score(query, texts.title, texts.url, texts.note, texts.tags, texts.extra);
}

struct Row {
    std::string query;
    Texts texts;
    std::optional<int> score;
};

void expectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows)
        EXPECT_EQ(scoreOf(row.query, row.texts), row.score)
            << "\"" << row.query << "\" in \"" << row.texts.title << "\"";
}

constexpr auto noMatch = std::nullopt;
const Texts full{"Reading list", "https://example.com/books", "for the summer", {"news"}, "Inbox"};

TEST(LinkSearchScore, aBlankQueryMatchesEverythingWithNothing) {
    for (const char* query : {"", " ", "\t\r\n ", "\u00A0\u2003\u3000\u2028"})
        expectRows({{query, full, 0}, {query, {}, 0}});
}

TEST(LinkSearchScore, aQueryThatFoldsToNothingMatchesEverything) {
    expectRows({{"\u0301", full, 0}, {" \u0301\u0308 ", {}, 0}});
}

TEST(LinkSearchScore, theTitleIsComparedWithTheWholeQueryOnce) {
    expectRows({{"reading list", {"Reading list"}, 100 + 20 + 20},
                {"reading", {"Reading list"}, 45 + 20},
                {"list", {"Reading list"}, 25 + 20},
                {"list reading", {"Reading list"}, 20 + 20},
                {"reading  list", {"Reading list"}, 20 + 20},
                {"reading list", {"Reading  list"}, 20 + 20},
                {" reading list\n", {"Reading list"}, 100 + 20 + 20},
                {"reading list", {" Reading list"}, 25 + 20 + 20},
                {"a", {""}, noMatch}});
}

TEST(LinkSearchScore, eachTermCountsWithTheFirstPlaceThatHasIt) {
    const std::string all = "find";
    expectRows({{"find", {"find", all, all, {all}, all}, 100 + 20},
                {"find", {"xfindx", all, all, {all}, all}, 25 + 12},
                {"find", {"", all, all, {"xfindx", all}, all}, 10},
                {"find", {"", "xfindx", all, {}, all}, 6},
                {"find", {"", "", "xfindx", {}, all}, 4},
                {"find", {"", "", "", {}, "xfindx"}, 1},
                {"find", {"fin", "ind", "f ind", {"fi", "nd"}, "fin d"}, noMatch}});
}

TEST(LinkSearchScore, everyTermHasToBeFound) {
    expectRows({{"reading missing", full, noMatch},
                {"missing reading", full, noMatch},
                {"reading books summer news inbox", full, 20 + 6 + 4 + 10 + 1},
                {"reading reading", full, 20 + 20},
                {"board key", {"keyboard"}, 12 + 12},
                {"key board", {"keyboard"}, 12 + 12}});
}

TEST(LinkSearchScore, termsAreCutAtEveryKindOfWhiteSpace) {
    for (const char* space : {" ", "\t", "\n", "\r\n", "\v", "\f", "\u0085", "\u00A0", "\u1680",
                              "\u2003", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000", " \t "})
        EXPECT_EQ(scoreOf(std::string("list") + space + "reading", full), 20 + 20) << space;
    EXPECT_EQ(scoreOf("list\u200Breading", full), noMatch) << "zero width, but no white space";
}

TEST(LinkSearchScore, aHashAsksForAWholeTag) {
    const Texts tagged{"Title", "", "", {"Reading", "two words"}, ""};
    expectRows({{"#READING", tagged, 30},
                {"#reading", tagged, 30},
                {"#read", tagged, noMatch},
                {"#eading", tagged, noMatch},
                {"read", tagged, 10},
                {"#title", tagged, noMatch},
                {"#two words", tagged, noMatch},
                {"##reading", tagged, noMatch},
                {"#reading#", tagged, noMatch},
                {"#reading title", tagged, 30 + 20},
                {"title #missing", tagged, noMatch},
                {"#café", {"", "", "", {"cafe"}, ""}, 30},
                {"#a", {"#a", "", "", {"a"}, ""}, 100 + 30},
                {"#a", {"#a", "#a", "#a", {"ab"}, "#a"}, noMatch},
                {"a#b", {"a#b", "", "", {"b"}, ""}, 100 + 12}});
}

TEST(LinkSearchScore, aLoneHashMatchesNothing) {
    expectRows({{"#", full, noMatch},
                {"#", {"#", "#", "#", {"#"}, "#"}, noMatch},
                {"# reading", {"", "", "", {"reading"}, ""}, noMatch},
                {"reading #", full, noMatch},
                // Tags that fold to nothing.
                {"#", {"", "", "", {"\u0301"}, ""}, noMatch},
                {"#", {"", "", "", {""}, ""}, noMatch},
                {"#\u0301", {"", "", "", {"\u0301"}, ""}, noMatch}});
}

TEST(LinkSearchScore, wordsEndAtWhatIsNeitherLetterNorNumber) {
    expectRows({{"dev", {"web-dev.net"}, 25 + 20},
                {"web", {"web-dev.net"}, 45 + 20},
                {"net", {"web-dev.net"}, 25 + 20},
                {"web-dev", {"web-dev.net"}, 45 + 12},
                {"foo", {"foo_bar"}, 45 + 20},
                {"don", {"don't"}, 45 + 20},
                {"2024", {"of 2024!"}, 25 + 20},
                {"202", {"of 2024!"}, 25 + 12},
                {"1", {"1½"}, 45 + 12},
                {"c++", {"c++"}, 100 + 12},
                {"a", {"aa a"}, 45 + 20},
                {"aa", {"aaa xaa aa"}, 45 + 20},
                {"aa", {"aaa xaa aab"}, 45 + 12},
                {"x", {"\u2013x\u2013"}, 25 + 20},
                {"x", {"日x"}, 25 + 12}});
}

TEST(LinkSearchScore, wordsOfOtherScriptsAreWords) {
    expectRows({{"МОСКВА", {"Москва-Сити"}, 45 + 20},
                {"сити", {"Москва-Сити"}, 25 + 20},
                {"сква", {"Москва-Сити"}, 25 + 12},
                {"日本", {"日本語"}, 45 + 12},
                {"日本", {"日本・語"}, 45 + 20},
                {"한국", {"한국 여행"}, 45 + 20},
                {"한", {"한국"}, 45 + 12},
                {"ΟΔΟΣ", {"οδός"}, 100 + 20},
                {"𝒳", {"a𝒳b"}, 25 + 12},
                {"😀", {"a 😀 b"}, 25 + 12}});
}

TEST(LinkSearchScore, accentsAndLetterCaseDontCount) {
    expectRows({{"cafe", {"Café"}, 100 + 20},
                {"CAFÉ", {"cafe"}, 100 + 20},
                {"cafe\u0301", {"Café"}, 100 + 20},
                {"strasse", {"Straße"}, 100 + 20},
                {"STRAẞE", {"strasse"}, 100 + 20},
                {"file", {"ﬁle"}, 100 + 20},
                {"nandu", {"über Ñandú"}, 25 + 20}});
}

TEST(LinkSearchScore, dottedAndDotlessIAreTwoLettersInTurkishOnly) {
    const std::vector<Row> turkish{
        {"ISPARTA", {"ısparta"}, 100 + 20},  {"isparta", {"ISPARTA"}, noMatch},
        {"İZMİR", {"izmir"}, 100 + 20},      {"#I", {"", "", "", {"i"}, ""}, noMatch},
        {"#I", {"", "", "", {"ı"}, ""}, 30}, {"title", {"TITLE"}, noMatch}};
    for (const char* locale : {"tr_TR.UTF-8", "az_AZ.UTF-8"}) {
        const UserLocale user(locale);
        expectRows(turkish);
    }
    const UserLocale german("de_DE.UTF-8");
    expectRows({{"ISPARTA", {"ısparta"}, noMatch},
                {"isparta", {"ISPARTA"}, 100 + 20},
                {"İZMİR", {"izmir"}, 100 + 20},
                {"ae", {"ä"}, noMatch},
                {"a", {"Ä"}, 100 + 20}});
}

TEST(LinkSearchScore, aTermIsNeverFoundAcrossTwoTexts) {
    expectRows({{"bc", {"ab", "cd", "cd", {"cd", "ab", "cd"}, "cd"}, noMatch},
                {"xs", {"", "", "", {}, "Inbox Safari"}, noMatch},
                {"nullnull", {"null", "null", "null", {"null"}, "null"}, noMatch}});
}

TEST(LinkSearchScore, zeroBytesAndBadBytesAreCharactersLikeOthers) {
    using namespace std::string_literals;
    expectRows({{"a\0b"s, {"x a\0b"s}, 25 + 12},
                {"b"s, {"a\0b"s}, 25 + 20},
                {"\0"s, {""s}, noMatch},
                {"\xFF"s, {"\xFF"s}, 100 + 12},
                {"\xFF"s, {"\xC3"s}, 100 + 12},
                {"a\xE2\x82"s, {"a\xE2\x82 b"s}, 45 + 12},
                {"b"s, {"\xF0\x9F\x98 b"s}, 25 + 20}});
}

TEST(LinkSearchScore, enormousTextsAreNoSpecialCase) {
    const std::string many(std::size_t{1} << 20, 'a');
    expectRows({{"ab", {many + "b"}, 25 + 12},
                {many + "b", {many}, noMatch},
                {many, {many + " x"}, 45 + 20},
                {"é" + many, {"", "", "", {}, "E" + many}, 1}});
    std::string terms;
    for (int count = 0; count < 20000; ++count)
        terms += "list ";
    EXPECT_EQ(scoreOf(terms, full), 20000 * 20);
    const Texts tagged{"", "", "", std::vector<std::string>(20000, "tag"), ""};
    EXPECT_EQ(scoreOf("#tag tag", tagged), 30 + 10);
}

TEST(SavedLinkMatches, countsCollectionAndBrowser) {
    SavedLink link;
    link.title = "Title";
    link.collection = "Inbox";
    link.browser = "Safari";
    for (const char* query : {"", "title", "inbox", "safari", "safari inbox title", "inbox safari"})
        EXPECT_TRUE(link.matches(query)) << query;
    for (const char* query : {"xs", "inboxsafari", "#inbox", "chrome", "title chrome"})
        EXPECT_FALSE(link.matches(query)) << query;
}

TEST(SavedLinkMatches, doesntCountIconAndIdentity) {
    SavedLink link;
    link.iconURL = "https://example.com/icon.png";
    EXPECT_FALSE(link.matches("icon"));
    EXPECT_FALSE(link.matches("0000"));
}

} // namespace
} // namespace brinmoor

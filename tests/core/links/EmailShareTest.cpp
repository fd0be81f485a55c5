#include "core/links/EmailShare.h"

#include "tests/core/Generated.h"

#include <gtest/gtest.h>

namespace brinmoor::EmailShare {
namespace {

using namespace std::string_literals;

SavedLink link(std::string title) {
    SavedLink made;
    made.title = std::move(title);
    made.url = "https://example.com/a?b#c";
    made.note = "the saved note";
    return made;
}

TEST(EmailShareSubject, isOneLineWithABlankForEachLineEnd) {
    const std::pair<std::string, std::string> rows[]{
        {"", ""},
        {"title", "title"},
        {"a\nb", "a b"},
        {"a\rb", "a b"},
        {"a\r\nb", "a b"},
        {"a\n\nb", "a  b"},
        {"a\r\n\r\nb", "a  b"},
        {"a\n\rb", "a  b"},
        {"a\vb\fc", "a b c"},
        {"a\u0085b\u2028c\u2029d", "a b c d"},
        {"\n a \r\n", "a"},
        {"\n\r\u2028", ""},
        {"\u00A0a\u3000", "a"},
        {"a\tb  c", "a\tb  c"},
        {"日\n本", "日 本"},
        {"a\0\nb"s, "a\0 b"s},
        {"a\xE2\x80\nb"s, "a\xE2\x80 b"s},
        {"\xFF"s, "\xFF"s},
    };
    for (const auto& [title, line] : rows)
        EXPECT_EQ(subject(title), line) << title;
}

TEST(EmailShareSubject, takesATitleOfAnyLength) {
    const std::string words(std::size_t{1} << 20, 'x');
    EXPECT_EQ(subject("\n" + words + "\n" + words + "\n"), words + " " + words);
}

TEST(EmailShareSubject, isItsOwnSubjectAndHoldsNoLineEnd) {
    const std::vector<std::string> pieces{
        "a",  "é",      "日",     " ",      "\n",     "\r",   "\r\n",     "\v",     "\f",
        "\t", "\u0085", "\u2028", "\u2029", "\u00A0", "\xE2", "\xE2\x80", "\u2027", "😀"};
    tests::forSeeds(5000, [&](tests::Generated& generated) {
        const std::string title = generated.textOf(pieces, 12);
        const std::string line = subject(title);
        EXPECT_EQ(subject(line), line) << title;
        EXPECT_EQ(line.find_first_of("\n\r\v\f"), std::string::npos);
        for (const char* end : {"\u0085", "\u2028", "\u2029"})
            EXPECT_EQ(line.find(end), std::string::npos) << title;
    });
}

TEST(EmailShareBody, isTheTitleAndBelowItTheAddress) {
    EXPECT_EQ(body(link("A\ntitle "), "a note", false), "A title\nhttps://example.com/a?b#c");
}

TEST(EmailShareBody, beginsWithTheNoteThatIsIncluded) {
    EXPECT_EQ(body(link("Title"), " two\nlines\n", true),
              "two\nlines\n\nTitle\nhttps://example.com/a?b#c");
}

TEST(EmailShareBody, aBlankNoteIsNone) {
    for (const char* note : {"", " ", "\n\t\r\n", "\u00A0\u2028"})
        EXPECT_EQ(body(link("Title"), note, true), "Title\nhttps://example.com/a?b#c");
}

TEST(EmailShareBody, neverShowsTheSavedNote) {
    for (const bool includeNote : {false, true})
        EXPECT_EQ(body(link("Title"), "x", includeNote).find("saved"), std::string::npos);
}

TEST(EmailShareBody, withoutATitleBeginsWithALineEnd) {
    EXPECT_EQ(body(link(""), "", false), "\nhttps://example.com/a?b#c");
    EXPECT_EQ(body(link(" \n"), "note", true), "note\n\n\nhttps://example.com/a?b#c");
}

} // namespace
} // namespace brinmoor::EmailShare

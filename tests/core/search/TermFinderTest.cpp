#include "core/search/TermFinder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brinmoor {
namespace {

using Answer = TermFinder::Answer;
using text::FoldRule;

/// In memory that ends where the text ends.
Answer answer(const TermFinder& finder, const std::string& text) {
    const std::vector<char> exact(text.begin(), text.end());
    return finder.lookInto({exact.data(), exact.size()});
}

bool isInFolded(const TermFinder& finder, const std::string& text) {
    const std::vector<char> exact(text.begin(), text.end());
    return finder.isInFolded({exact.data(), exact.size()});
}

const std::vector<std::string> terms{"a",
                                     "ab",
                                     "abc",
                                     "a b",
                                     "abcdefghijklmno",
                                     "abcdefghijklmnop",
                                     "abcdefghijklmnopq",
                                     "abcdefghijklmnopqrstuvwxyzabcdefghij"};

TEST(TermFinder, findsATermAtEveryPlaceOfTextsOfEveryLength) {
    for (const std::string& term : terms) {
        const TermFinder finder(term, FoldRule::standard);
        for (std::size_t length = 0; length < 70; ++length) {
            const std::string without(length, '.');
            EXPECT_EQ(answer(finder, without), Answer::absent) << term << length;
            EXPECT_FALSE(isInFolded(finder, without)) << term << length;
            for (std::size_t at = 0; at + term.size() <= length; ++at) {
                std::string with = without;
                with.replace(at, term.size(), term);
                EXPECT_EQ(answer(finder, with), Answer::found) << with;
                EXPECT_TRUE(isInFolded(finder, with)) << with;
            }
        }
    }
}

TEST(TermFinder, findsNoTermThatIsCutOff) {
    for (const std::string& term : terms)
        for (std::size_t before = 0; before < 40; ++before)
            for (std::size_t left = 0; left < term.size(); ++left) {
                const TermFinder finder(term, FoldRule::standard);
                const std::string text = std::string(before, '.') + term.substr(0, left);
                EXPECT_EQ(answer(finder, text), Answer::absent) << text;
                EXPECT_FALSE(isInFolded(finder, text)) << text;
            }
}

TEST(TermFinder, ignoresTheCaseOfAsciiLettersOnly) {
    const TermFinder finder("a[z{@`", FoldRule::standard);
    EXPECT_EQ(answer(finder, "xxA[Z{@`"), Answer::found);
    for (const char* other : {"a{z{@`", "a[z[@`", "a[z{`@", "!;z{@`", "a[z{@@", "a[z{``"})
        EXPECT_EQ(answer(finder, other), Answer::absent) << other;
    EXPECT_FALSE(isInFolded(finder, "xxA[Z{@`"));
}

TEST(TermFinder, asksForTheFoldedFormOfWhatIsNotAscii) {
    const TermFinder finder("ab", FoldRule::standard);
    for (std::size_t length = 2; length < 60; ++length)
        for (std::size_t at = 0; at + 2 <= length; ++at) {
            std::string text(length, '.');
            text.replace(at, 2, "é");
            EXPECT_EQ(answer(finder, text), Answer::needsFold) << text;
            EXPECT_FALSE(isInFolded(finder, text)) << text;
        }
}

TEST(TermFinder, asksForTheFoldedFormOfACapitalIInTurkish) {
    const TermFinder turkish("ti", FoldRule::turkic);
    const TermFinder other("ti", FoldRule::standard);
    for (std::size_t length = 2; length < 60; ++length)
        for (std::size_t at = 0; at + 2 <= length; ++at) {
            std::string text(length, '.');
            text.replace(at, 2, "TI");
            EXPECT_EQ(answer(turkish, text), Answer::needsFold) << text;
            EXPECT_EQ(answer(other, text), Answer::found) << text;
            text.replace(at, 2, "Ti");
            EXPECT_EQ(answer(turkish, text), Answer::found) << text;
        }
}

TEST(TermFinder, takesTermsOfOtherScriptsAndOfZeroBytes) {
    EXPECT_TRUE(isInFolded(TermFinder("本語", FoldRule::standard), "日本語のタイトル"));
    EXPECT_FALSE(isInFolded(TermFinder("本日", FoldRule::standard), "日本語のタイトル"));
    const std::string zeros("a\0", 2);
    const TermFinder finder(zeros, FoldRule::standard);
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string before(length, '.');
        EXPECT_EQ(answer(finder, before + "a"), Answer::absent) << length;
        EXPECT_EQ(answer(finder, before + zeros), Answer::found) << length;
    }
}

} // namespace
} // namespace brinmoor

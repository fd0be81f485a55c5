// Search is held against its rules in plain words, over generated texts.

#include "core/search/LinkQuery.h"
#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"
#include "tests/core/Generated.h"
#include "tests/core/UserLocale.h"
#include "tests/core/search/PlainSearch.h"

#include <gtest/gtest.h>

#include <array>

namespace brinmoor {
namespace {

using tests::Generated;
using tests::UserLocale;

/// Few different letters, so that much is found; all that folds, cuts or misleads beside them.
const std::vector<std::string> pieces{
    "a",         "b",      "A",      "B", "ab",     "ba",     "I",
    "i",         "ı",      "İ",      "é", "É",      "e",      "ß",
    "ss",        "\u0301", "\u0307", "ﬁ", "日",     "본",     "Ж",
    "ж",         "😀",      " ",      " ", "\n",     "\u00A0", "#",
    "-",         "_",      ".",      "1", "½",      "\xC3",   "\xF0\x9F\x98",
    "\xFF",      "x",      "\u200B", "K", "\u212A", "Å",      "aaaaaaaaaaaaa",
    "bbbbbbbbbb"};

struct Texts {
    std::string title, url, note, extra;
    std::vector<std::string> tags;
};

Texts someTexts(Generated& generated) {
    Texts texts;
    const std::size_t most = generated.oneOf(std::array<std::size_t, 3>{3, 12, 60});
    texts.title = generated.textOf(pieces, most);
    texts.url = generated.textOf(pieces, most);
    texts.note = generated.textOf(pieces, most);
    texts.extra = generated.textOf(pieces, 6);
    for (std::size_t left = generated.below(4); left > 0; --left)
        texts.tags.push_back(generated.textOf(pieces, 4));
    return texts;
}

/// A part of one of the texts, so that it is found, or anything.
std::string someTerm(Generated& generated, const Texts& texts) {
    if (!texts.tags.empty() && generated.oneIn(5))
        return "#" + generated.oneOf(texts.tags);
    const std::string text =
        generated.oneOf(std::array{texts.title, texts.title, texts.url, texts.note, texts.extra});
    if (text.empty() || generated.oneIn(4))
        return generated.textOf(pieces, 3);
    const std::size_t begin = generated.below(text.size());
    return text.substr(begin, 1 + generated.below(20));
}

std::string someQuery(Generated& generated, const Texts& texts) {
    if (generated.oneIn(6))
        return texts.title;
    std::string query;
    for (std::size_t left = generated.below(4); left > 0; --left)
        query += someTerm(generated, texts) + (generated.oneIn(8) ? "" : " ");
    return query;
}

std::optional<int> scoreOf(const std::string& query, const Texts& texts) {
    return LinkSearch::score(query, texts.title, texts.url, texts.note, texts.tags, texts.extra);
}

class LinkSearchLaw : public ::testing::TestWithParam<const char*> {
protected:
    UserLocale locale_{GetParam()};
};

TEST_P(LinkSearchLaw, theScoreIsThatOfTheRulesInPlainWords) {
    std::size_t found = 0;
    tests::forSeeds(40'000, [&](Generated& generated) {
        const Texts texts = someTexts(generated);
        const std::string query = someQuery(generated, texts);
        const auto expected =
            tests::plainScore(query, texts.title, texts.url, texts.note, texts.tags, texts.extra);
        EXPECT_EQ(scoreOf(query, texts), expected) << query << " in " << texts.title;
        found += expected.has_value() ? 1 : 0;
    });
    EXPECT_GT(found, 10'000U) << "too few queries find something to prove much";
}

TEST_P(LinkSearchLaw, aQueryAnswersLinkByLinkAsIfItWereAskedOnce) {
    tests::forSeeds(500, [&](Generated& generated) {
        const std::string query = someQuery(generated, someTexts(generated));
        LinkQuery asked(query);
        for (int count = 0; count < 20; ++count) {
            const Texts texts = someTexts(generated);
            EXPECT_EQ(
                asked.score({texts.title, texts.url, texts.note, texts.tags, texts.extra, {}}),
                scoreOf(query, texts));
        }
    });
}

TEST_P(LinkSearchLaw, anotherTermNeverFindsMore) {
    tests::forSeeds(4000, [&](Generated& generated) {
        const Texts texts = someTexts(generated);
        const std::string query = someQuery(generated, texts);
        const std::string more = query + " " + someTerm(generated, texts);
        EXPECT_TRUE(scoreOf(query, texts) || !scoreOf(more, texts)) << more;
    });
}

TEST_P(LinkSearchLaw, theFoldedQueryIsTheSameQuery) {
    tests::forSeeds(4000, [&](Generated& generated) {
        const Texts texts = someTexts(generated);
        const std::string query = someQuery(generated, texts);
        const std::string folded = LinkSearch::folded(query);
        // Marks that go may lay blanks bare, and the ends of a query are trimmed before it folds.
        if (text::trimmed(folded) == LinkSearch::folded(text::trimmed(query))) {
            EXPECT_EQ(scoreOf(folded, texts), scoreOf(query, texts)) << query;
        }
    });
}

TEST_P(LinkSearchLaw, aLinkMatchesWhenItsTextsHaveAScore) {
    tests::forSeeds(4000, [&](Generated& generated) {
        const Texts texts = someTexts(generated);
        SavedLink link;
        link.title = texts.title;
        link.url = texts.url;
        link.note = texts.note;
        link.tags = texts.tags;
        link.collection = texts.extra;
        link.browser = generated.textOf(pieces, 4);
        Texts whole = texts;
        whole.extra += " " + link.browser;
        const std::string query = someQuery(generated, whole);
        EXPECT_EQ(link.matches(query), scoreOf(query, whole).has_value()) << query;
    });
}

INSTANTIATE_TEST_SUITE_P(Locales, LinkSearchLaw, ::testing::Values("", "tr_TR.UTF-8"),
                         [](const auto& each) {
                             return std::string(each.param).empty() ? "root" : "turkish";
                         });

} // namespace
} // namespace brinmoor

#include "tests/core/tags/PlainTagging.h"

#include "core/links/LinkTitle.h"
#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"

#include <set>

namespace brinmoor::tests::PlainTagging {
namespace {

const std::set<std::string> stopWords{
    "about",   "after", "again", "against", "also",   "because", "before", "being",
    "between", "could", "does",  "doing",   "during", "each",    "from",   "have",
    "having",  "into",  "more",  "most",    "other",  "over",    "same",   "some",
    "such",    "than",  "that",  "their",   "them",   "then",    "there",  "these",
    "they",    "this",  "those", "through", "under",  "until",   "very",   "what",
    "when",    "where", "which", "while",   "with",   "would",   "your"};

Texts characters(const std::string& text) {
    const auto clusters = text::graphemes(text);
    return {clusters.begin(), clusters.end()};
}

std::string joined(const Texts& characters, std::size_t from, std::size_t to) {
    std::string text;
    for (std::size_t i = from; i < to; ++i)
        text += characters[i];
    return text;
}

bool endsWith(const Texts& word, const Texts& ending) {
    return word.size() >= ending.size() &&
           std::equal(ending.rbegin(), ending.rend(), word.rbegin());
}

bool onlyNumbers(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!text::isNumber(text::nextCharacter(text, at)))
            return false;
    }
    return true;
}

} // namespace

Texts tokens(const std::string& text) {
    const std::string folded = LinkSearch::folded(text);
    Texts pieces{""};
    for (std::size_t at = 0; at < folded.size();) {
        const std::size_t begin = at;
        const char32_t character = text::nextCharacter(folded, at);
        if (text::isLetter(character) || text::isNumber(character))
            pieces.back() += folded.substr(begin, at - begin);
        else
            pieces.emplace_back();
    }
    std::erase(pieces, "");
    return pieces;
}

Texts usableTitleTokens(const SavedLink& link) {
    if (LinkTitle::isGeneric(link.title))
        return {};
    const std::string title = LinkSearch::folded(LinkTitle::clean(link.title));
    const std::string domain = LinkSearch::folded(link.domain());
    if (title == domain || title.starts_with(domain + " ·"))
        return {};
    return tokens(LinkTitle::clean(link.title));
}

std::string dropRepeatedEnding(const std::string& word) {
    const Texts all = characters(word);
    if (all.size() >= 2 && all[all.size() - 1] == all[all.size() - 2])
        return joined(all, 0, all.size() - 1);
    return word;
}

std::string stem(const std::string& word) {
    const Texts all = characters(word);
    if (endsWith(all, {"i", "e", "s"}) && all.size() >= 6)
        return joined(all, 0, all.size() - 3) + "y";
    if (endsWith(all, {"i", "n", "g"}) && all.size() >= 7)
        return dropRepeatedEnding(joined(all, 0, all.size() - 3));
    if (endsWith(all, {"e", "d"}) && all.size() >= 6)
        return dropRepeatedEnding(joined(all, 0, all.size() - 2));
    if (endsWith(all, {"e", "s"}) && all.size() >= 6)
        return joined(all, 0, all.size() - 2);
    if (endsWith(all, {"s"}) && all.size() >= 5)
        return joined(all, 0, all.size() - 1);
    return word;
}

Texts learnableTokens(const SavedLink& link) {
    Texts learnable;
    for (const std::string& token : usableTitleTokens(link)) {
        const std::string stemmed = stem(token);
        if (characters(stemmed).size() >= 4 && !onlyNumbers(stemmed) &&
            !stopWords.contains(stemmed))
            learnable.push_back(stemmed);
    }
    return learnable;
}

bool oneEditApart(const std::string& a, const std::string& b) {
    Texts longer = characters(a);
    Texts shorter = characters(b);
    if (longer.size() < shorter.size())
        std::swap(longer, shorter);
    if (longer.size() - shorter.size() > 1)
        return false;
    if (longer.size() == shorter.size() + 1) {
        for (std::size_t i = 0; i < shorter.size(); ++i) {
            if (longer[i] != shorter[i])
                return joined(longer, i + 1, longer.size()) == joined(shorter, i, shorter.size());
        }
        return true;
    }
    std::vector<std::size_t> differing;
    for (std::size_t i = 0; i < longer.size(); ++i) {
        if (longer[i] != shorter[i])
            differing.push_back(i);
    }
    if (differing.size() == 1)
        return true;
    if (differing.size() != 2)
        return false;
    const auto [first, second] = std::pair(differing[0], differing[1]);
    return second == first + 1 && longer[first] == shorter[second] &&
           longer[second] == shorter[first];
}

bool fuzzyMatch(const std::string& a, const std::string& b, bool allowShortExact) {
    const Texts inA = characters(a);
    const Texts inB = characters(b);
    if (a == b)
        return allowShortExact || inA.size() > 3;
    if (inA.size() < 4 || inB.size() < 4)
        return false;
    if (stem(a) == stem(b))
        return true;
    if (inA.size() < 5 || inB.size() < 5)
        return false;
    if (inA.front() != inB.front())
        return false;
    return oneEditApart(a, b);
}

bool containsPhrase(const Texts& tokens, const Texts& phrase) {
    if (phrase.empty() || phrase.size() > tokens.size())
        return false;
    for (std::size_t start = 0; start + phrase.size() <= tokens.size(); ++start) {
        bool all = true;
        for (std::size_t i = 0; i < phrase.size(); ++i)
            all = all && fuzzyMatch(tokens[start + i], phrase[i], true);
        if (all)
            return true;
    }
    return false;
}

} // namespace brinmoor::tests::PlainTagging

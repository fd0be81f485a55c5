#include "core/tags/TitleWords.h"

#include "core/links/LinkTitle.h"
#include "core/search/LinkSearch.h"
#include "core/text/Blocks.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <array>
#include <bit>

namespace brinmoor::LinkAutoTagging {
namespace {

/// In alphabetical order.
constexpr std::array<std::string_view, 47> stopWords{
    "about",   "after", "again", "against", "also",   "because", "before", "being",
    "between", "could", "does",  "doing",   "during", "each",    "from",   "have",
    "having",  "into",  "more",  "most",    "other",  "over",    "same",   "some",
    "such",    "than",  "that",  "their",   "them",   "then",    "there",  "these",
    "they",    "this",  "those", "through", "under",  "until",   "very",   "what",
    "when",    "where", "which", "while",   "with",   "would",   "your"};

static_assert(std::ranges::is_sorted(stopWords) && !stopWords.back().empty());

constexpr std::size_t shortestLearned = 4;
constexpr std::size_t shortestStemmed = 4;
constexpr std::size_t shortestEdited = 5;

bool isAscii(std::string_view text) noexcept {
    return std::ranges::all_of(text,
                               [](char unit) { return static_cast<unsigned char>(unit) < 0x80; });
}

enum class Unit : unsigned char { between, ofToken, ofLongerCharacter };

constexpr std::array<Unit, 256> units = [] {
    std::array<Unit, 256> kinds{};
    for (std::size_t unit = 0; unit < kinds.size(); ++unit) {
        const bool isLetter = (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z');
        if (isLetter || (unit >= '0' && unit <= '9'))
            kinds[unit] = Unit::ofToken;
        else if (unit >= 0x80)
            kinds[unit] = Unit::ofLongerCharacter;
    }
    return kinds;
}();

/// Whether the longer character at `at` belongs to a token; `next` is behind it.
bool longerBelongsToToken(std::string_view text, std::size_t at, std::size_t& next) noexcept {
    next = at;
    const char32_t character = text::nextCharacter(text, next);
    return text::isLetter(character) || text::isNumber(character);
}

/// Whether the character at `at` belongs to a token; `next` is behind it.
inline bool belongsToToken(std::string_view text, std::size_t at, std::size_t& next) noexcept {
    const Unit unit = units[static_cast<unsigned char>(text[at])];
    next = at + 1;
    return unit == Unit::ofLongerCharacter ? longerBelongsToToken(text, at, next)
                                           : unit == Unit::ofToken;
}

#if BRINMOOR_BLOCKS

__m128i isBetween(__m128i block, char first, char last) {
    return _mm_and_si128(_mm_cmpgt_epi8(block, _mm_set1_epi8(static_cast<char>(first - 1))),
                         _mm_cmplt_epi8(block, _mm_set1_epi8(static_cast<char>(last + 1))));
}

/// One bit for each byte of a block of ASCII.
unsigned tokenUnitsOf(__m128i block) {
    const __m128i small = _mm_or_si128(block, _mm_set1_epi8(0x20));
    return text::maskOf(_mm_or_si128(isBetween(small, 'a', 'z'), isBetween(block, '0', '9')));
}

/// Takes blocks of ASCII, without a branch for each of their bytes.
void findTokensInBlocks(std::string_view folded, std::size_t& at, bool& isInToken,
                        std::vector<std::size_t>& starts) {
    for (; folded.size() - at >= text::blockSize; at += text::blockSize) {
        const __m128i block = text::loadBlock(folded.data() + at);
        if (text::maskOf(block) != 0)
            return;
        const unsigned inside = tokenUnitsOf(block);
        unsigned begins = inside & ~(inside << 1 | static_cast<unsigned>(isInToken));
        for (; begins != 0; begins &= begins - 1)
            starts.push_back(at + static_cast<std::size_t>(std::countr_zero(begins)));
        isInToken = (inside >> (text::blockSize - 1)) != 0;
    }
}

#else

void findTokensInBlocks(std::string_view, std::size_t&, bool&, std::vector<std::size_t>&) {}

#endif

bool hasAtLeast(std::string_view word, std::size_t characters) {
    return word.size() >= characters && text::graphemeCount(word) >= characters;
}

std::string_view withoutRepeatedEnding(std::string_view word) {
    const auto characters = text::graphemes(word);
    const std::size_t count = characters.size();
    if (count >= 2 && characters[count - 1] == characters[count - 2])
        word.remove_suffix(characters.back().size());
    return word;
}

bool endsWith(std::string_view word, std::string_view ending, std::size_t fewestCharacters) {
    return word.ends_with(ending) && hasAtLeast(word, fewestCharacters);
}

/// `longer` has one character more than `shorter`.
template <class Characters>
bool oneInsertionApart(const Characters& longer, const Characters& shorter) {
    const auto [here, there] = std::ranges::mismatch(shorter, longer);
    return std::equal(here, shorter.end(), there + 1, longer.end());
}

/// Both have the same number of characters.
template <class Characters>
bool oneChangeApart(const Characters& a, const Characters& b) {
    const auto [hereA, hereB] = std::ranges::mismatch(a, b);
    if (hereA == a.end())
        return false;
    if (std::equal(hereA + 1, a.end(), hereB + 1))
        return true;
    return hereA + 1 != a.end() && hereA[0] == hereB[1] && hereA[1] == hereB[0] &&
           std::equal(hereA + 2, a.end(), hereB + 2);
}

template <class Characters>
bool oneEdit(const Characters& a, const Characters& b) {
    if (a.size() == b.size())
        return oneChangeApart(a, b);
    if (a.size() == b.size() + 1)
        return oneInsertionApart(a, b);
    return b.size() == a.size() + 1 && oneInsertionApart(b, a);
}

} // namespace

std::string_view nextToken(std::string_view folded, std::size_t& at) noexcept {
    std::size_t next = at;
    while (at < folded.size() && !belongsToToken(folded, at, next))
        at = next;
    const std::size_t begin = at;
    while (at < folded.size() && belongsToToken(folded, at, next))
        at = next;
    return folded.substr(begin, at - begin);
}

std::vector<std::string> tokens(std::string_view folded) {
    std::vector<std::string> result;
    std::size_t at = 0;
    for (auto token = nextToken(folded, at); !token.empty(); token = nextToken(folded, at))
        result.emplace_back(token);
    return result;
}

void findTokens(std::string_view folded, std::vector<std::size_t>& starts) {
    starts.clear();
    bool isInToken = false;
    for (std::size_t at = 0; at < folded.size();) {
        findTokensInBlocks(folded, at, isInToken, starts);
        if (at == folded.size())
            break;
        std::size_t next = at;
        const bool belongs = belongsToToken(folded, at, next);
        if (belongs && !isInToken)
            starts.push_back(at);
        isInToken = belongs;
        at = next;
    }
}

std::string stem(std::string_view word) {
    const auto without = [&](std::size_t ending) { return word.substr(0, word.size() - ending); };
    if (endsWith(word, "ies", 6))
        return std::string(without(3)) + "y";
    if (endsWith(word, "ing", 7))
        return std::string(withoutRepeatedEnding(without(3)));
    if (endsWith(word, "ed", 6))
        return std::string(withoutRepeatedEnding(without(2)));
    if (endsWith(word, "es", 6))
        return std::string(without(2));
    if (endsWith(word, "s", 5))
        return std::string(without(1));
    return std::string(word);
}

Word::Word(std::string_view word)
    : text(word), stem(LinkAutoTagging::stem(word)), length(text::graphemeCount(word)) {}

bool oneEditApart(std::string_view a, std::string_view b) {
    if (isAscii(a) && isAscii(b))
        return oneEdit(a, b);
    return oneEdit(text::graphemes(a), text::graphemes(b));
}

bool fuzzyMatch(const Word& a, const Word& b, ShortWords shortWords) {
    if (a.text == b.text)
        return shortWords == ShortWords::matchWhenEqual || a.length >= shortestStemmed;
    if (a.length < shortestStemmed || b.length < shortestStemmed)
        return false;
    if (a.stem == b.stem)
        return true;
    if (a.length < shortestEdited || b.length < shortestEdited)
        return false;
    return text::firstGraphemes(a.text, 1) == text::firstGraphemes(b.text, 1) &&
           oneEditApart(a.text, b.text);
}

bool containsPhrase(const std::vector<Word>& words, const std::vector<Word>& phrase) {
    if (phrase.empty() || phrase.size() > words.size())
        return false;
    const auto matches = [](const Word& word, const Word& part) {
        return fuzzyMatch(word, part, ShortWords::matchWhenEqual);
    };
    return std::search(words.begin(), words.end(), phrase.begin(), phrase.end(), matches) !=
           words.end();
}

bool isLearnable(std::string_view stem) {
    if (!hasAtLeast(stem, shortestLearned) || std::ranges::binary_search(stopWords, stem))
        return false;
    for (std::size_t at = 0; at < stem.size();) {
        if (!text::isNumber(text::nextCharacter(stem, at)))
            return true;
    }
    return false;
}

bool isTitleOfItsOwn(std::string_view title, std::string_view foldedTitle,
                     std::string_view foldedDomain) {
    constexpr std::string_view separator = " ·";
    if (foldedTitle.starts_with(foldedDomain)) {
        const std::string_view rest = foldedTitle.substr(foldedDomain.size());
        if (rest.empty() || rest.starts_with(separator))
            return false;
    }
    return !LinkTitle::isGeneric(title);
}

std::vector<std::string> usableTitleTokens(const SavedLink& link) {
    const std::string folded = LinkSearch::folded(LinkTitle::clean(link.title));
    if (!isTitleOfItsOwn(link.title, folded, LinkSearch::folded(link.domain())))
        return {};
    return tokens(folded);
}

} // namespace brinmoor::LinkAutoTagging

#include "core/tags/LearnedWords.h"

#include "core/links/LinkTitle.h"
#include "core/search/LinkSearch.h"
#include "core/tags/SiteOfLink.h"

#include <algorithm>
#include <utility>

namespace brinmoor::LinkAutoTagging {
namespace {

constexpr std::int64_t fewestLinks = 2;
constexpr double smallestConfidence = 0.6;
constexpr std::size_t fewestCharacters = 4; ///< of words that match other than as a whole
/// No text of so many bytes has more characters than a clean title keeps.
constexpr std::size_t longestUncut = 180;

bool isBetter(const LearnedWords::Evidence& a, const LearnedWords::Evidence& b) {
    return a.confidence > b.confidence || (a.confidence == b.confidence && a.support > b.support);
}

std::size_t byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

constexpr std::uint64_t anything = ~std::uint64_t{0};

std::uint64_t bitOf(std::string_view text, std::size_t at) {
    return std::uint64_t{1} << (byteAt(text, at) & 63U);
}

/// Which bytes stand second and third. Where characters have more than one byte, no telling.
std::uint64_t beginningOf(std::string_view word) {
    if (((byteAt(word, 0) | byteAt(word, 1) | byteAt(word, 2)) & 0x80U) != 0)
        return anything;
    return bitOf(word, 1) | bitOf(word, 2);
}

} // namespace

LearnedWords::LearnedWords(const std::vector<Word>& titleWords)
    : titleWords_(titleWords), beginnings_{} {
    for (const Word& word : titleWords)
        if (word.length >= fewestCharacters)
            beginnings_[byteAt(word.text, 0)] |= beginningOf(word.text);
}

void LearnedWords::observe(const SavedLink& example, const std::vector<TagNumber>& tags) {
    if (titleWords_.empty())
        return;
    ++example_;
    folded_.clear();
    // White space more or less makes no other words: a short title needs no cleaning for them.
    if (example.title.size() <= longestUncut)
        text::appendFolded(folded_, example.title);
    else
        text::appendFolded(folded_, LinkTitle::clean(example.title));
    hear(folded_);
    if (!heard_.empty() && isWorthReading(example))
        count(tags);
}

bool LearnedWords::isWorthReading(const SavedLink& example) {
    if (!LinkTitle::isSurelyClean(example.title))
        folded_ = LinkSearch::folded(LinkTitle::clean(example.title));
    if (!mayBeginWithDomain(folded_, example, host_))
        return !LinkTitle::isGeneric(example.title);
    return isTitleOfItsOwn(example.title, folded_, LinkSearch::folded(example.domain()));
}

void LearnedWords::hear(std::string_view foldedTitle) {
    heard_.clear();
    findTokens(foldedTitle, starts_);
    for (std::size_t at : starts_) {
        if (!mayMatch(foldedTitle.substr(at)))
            continue;
        const StemNumber stem = stemNumber(nextToken(foldedTitle, at));
        if (stem == unheard || stems_[stem].lastExample == example_)
            continue;
        stems_[stem].lastExample = example_;
        heard_.push_back(stem);
    }
}

void LearnedWords::count(const std::vector<TagNumber>& tags) {
    tags_.clear();
    for (const TagNumber tag : tags) {
        if (tag >= lastExampleOfTag_.size())
            lastExampleOfTag_.resize(tag + std::size_t{1}, 0);
        if (std::exchange(lastExampleOfTag_[tag], example_) != example_)
            tags_.push_back(tag);
    }
    for (const StemNumber stem : heard_) {
        ++stems_[stem].count;
        for (const TagNumber tag : tags_)
            ++stems_[stem].tags[tag];
    }
}

/// Whether the token at the beginning of `text` may match. Words that do have the same first
/// character, and one edit can't change the next two so much that none of them is left; stems keep
/// the first three. False is certain.
bool LearnedWords::mayMatch(std::string_view text) const noexcept {
    return text.size() >= fewestCharacters &&
           (beginnings_[byteAt(text, 0)] & beginningOf(text)) != 0;
}

LearnedWords::StemNumber LearnedWords::stemNumber(std::string_view token) {
    const auto [number, isNew] = tokens_.add(token, TextNumbers::Storage::copied);
    if (isNew)
        stemOfToken_.push_back(newStemNumber(token));
    return stemOfToken_[number];
}

LearnedWords::StemNumber LearnedWords::newStemNumber(std::string_view token) {
    const std::string text = stem(token);
    const auto [textNumber, isNew] = stemTexts_.add(text, TextNumbers::Storage::copied);
    if (!isNew)
        return stemOfText_[textNumber];
    StemNumber number = unheard;
    if (isLearnable(text) && isInTitle(Word(text))) {
        number = static_cast<StemNumber>(stems_.size());
        stems_.emplace_back();
    }
    stemOfText_.push_back(number);
    return number;
}

bool LearnedWords::isInTitle(const Word& stem) const {
    return std::ranges::any_of(titleWords_, [&](const Word& word) {
        return fuzzyMatch(word, stem, ShortWords::neverMatch);
    });
}

std::vector<LearnedWords::Evidence> LearnedWords::evidence(std::size_t tagCount) const {
    std::vector<Evidence> best(tagCount);
    for (const Stem& stem : stems_) {
        for (const auto& [tag, links] : stem.tags) {
            const Evidence found{static_cast<double>(links) / static_cast<double>(stem.count),
                                 links};
            if (links >= fewestLinks && found.confidence >= smallestConfidence &&
                isBetter(found, best[tag]))
                best[tag] = found;
        }
    }
    return best;
}

} // namespace brinmoor::LinkAutoTagging

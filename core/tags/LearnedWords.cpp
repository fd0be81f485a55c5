#include "core/tags/LearnedWords.h"

#include "core/links/LinkTitle.h"
#include "core/search/LinkSearch.h"

#include <algorithm>
#include <utility>

namespace brinmoor::LinkAutoTagging {
namespace {

constexpr std::int64_t fewestLinks = 2;
constexpr double smallestConfidence = 0.6;

bool isBetter(const LearnedWords::Evidence& a, const LearnedWords::Evidence& b) {
    return a.confidence > b.confidence || (a.confidence == b.confidence && a.support > b.support);
}

std::size_t byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

} // namespace

LearnedWords::LearnedWords(const std::vector<Word>& titleWords)
    : titleWords_(titleWords), firstBytes_(256, false) {
    for (const Word& word : titleWords)
        firstBytes_[byteAt(word.text, 0)] = true;
}

void LearnedWords::observe(const SavedLink& example, const std::vector<TagNumber>& tags) {
    if (titleWords_.empty())
        return;
    ++example_;
    const std::string folded = LinkSearch::folded(LinkTitle::clean(example.title));
    hear(folded);
    if (heard_.empty() ||
        !isTitleOfItsOwn(example.title, folded, LinkSearch::folded(example.domain())))
        return;
    count(tags);
}

void LearnedWords::hear(std::string_view foldedTitle) {
    heard_.clear();
    std::size_t at = 0;
    for (auto token = nextToken(foldedTitle, at); !token.empty();
         token = nextToken(foldedTitle, at)) {
        if (!firstBytes_[byteAt(token, 0)])
            continue;
        const StemNumber stem = stemNumber(token);
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

LearnedWords::StemNumber LearnedWords::stemNumber(std::string_view token) {
    const auto known = byToken_.find(token);
    if (known != byToken_.end())
        return known->second;
    return byToken_.emplace(token, newStemNumber(token)).first->second;
}

LearnedWords::StemNumber LearnedWords::newStemNumber(std::string_view token) {
    const std::string text = stem(token);
    if (const auto known = byStem_.find(text); known != byStem_.end())
        return known->second;
    StemNumber number = unheard;
    if (isLearnable(text) && isInTitle(Word(text))) {
        number = static_cast<StemNumber>(stems_.size());
        stems_.emplace_back();
    }
    return byStem_.emplace(text, number).first->second;
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

#pragma once

#include "core/tags/TagTable.h"
#include "core/tags/TextNumbers.h"
#include "core/tags/TitleWords.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brinmoor::LinkAutoTagging {

/// What the words of a title have so far gone with. It counts only the words of the examples that
/// match a word of the title; any other could not speak for a tag.
class LearnedWords {
public:
    explicit LearnedWords(const std::vector<Word>& titleWords);

    /// Counts the words of one example's title, each once, with its tags, each once.
    void observe(const SavedLink& example, const std::vector<TagNumber>& tags);

    /// The best word's word for a tag.
    struct Evidence {
        double confidence = 0;    ///< the part of the word's links that have the tag
        std::int64_t support = 0; ///< how many they are; 0: no word speaks for the tag
    };
    /// By tag, `tagCount` of them.
    [[nodiscard]] std::vector<Evidence> evidence(std::size_t tagCount) const;

private:
    using StemNumber = std::uint32_t;
    struct Stem {
        std::int64_t count = 0;
        std::uint64_t lastExample = 0;
        std::unordered_map<TagNumber, std::int64_t> tags;
    };
    static constexpr StemNumber unheard = ~StemNumber{0};

    [[nodiscard]] bool isWorthReading(const SavedLink& example);
    void hear(std::string_view foldedTitle);
    [[nodiscard]] bool mayMatch(std::string_view text) const noexcept;
    StemNumber stemNumber(std::string_view token);
    StemNumber newStemNumber(std::string_view token);
    bool isInTitle(const Word& stem) const;
    void count(const std::vector<TagNumber>& tags);

    const std::vector<Word>& titleWords_;
    std::array<std::uint64_t, 256> beginnings_; ///< of words that can match, see mayMatch
    TextNumbers tokens_;
    std::vector<StemNumber> stemOfToken_;
    TextNumbers stemTexts_;
    std::vector<StemNumber> stemOfText_;
    std::vector<Stem> stems_;
    std::vector<StemNumber> heard_;   ///< in the present example
    std::vector<std::size_t> starts_; ///< of its title's tokens
    std::vector<std::uint64_t> lastExampleOfTag_;
    std::vector<TagNumber> tags_;
    std::uint64_t example_ = 0;
    std::string folded_; ///< kept for its room, as is the next
    std::string host_;
};

} // namespace brinmoor::LinkAutoTagging

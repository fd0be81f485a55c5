#include "core/tags/LinkAutoTagging.h"

#include "core/tags/LearnedWords.h"
#include "core/tags/SiteOfLink.h"
#include "core/tags/TagTable.h"
#include "core/tags/TextNumbers.h"
#include "core/tags/TitleWords.h"
#include "core/text/AddressIdentity.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <cmath>

namespace brinmoor::LinkAutoTagging {
namespace {

constexpr std::int64_t titlePoints = 10000;
constexpr double sitePoints = 8000;
constexpr double smallestSiteShare = 0.5;
constexpr std::int64_t fewestSiteExamples = 3;
constexpr std::int64_t fewestSiteLinks = 2;
constexpr double learnedPoints = 6000;

std::vector<Word> wordsOf(const std::vector<std::string>& tokens) {
    return {tokens.begin(), tokens.end()};
}

/// How often each tag stands on the site of the new link.
struct SiteCounts {
    Site site;
    std::int64_t examples = 0;
    std::vector<std::int64_t> tags; ///< by tag; what lies behind its end is 0

    void observe(const SavedLink& example, const std::vector<TagNumber>& exampleTags) {
        if (!site.holds(example))
            return;
        ++examples;
        for (const TagNumber tag : exampleTags) {
            if (tag >= tags.size())
                tags.resize(tag + std::size_t{1}, 0);
            ++tags[tag];
        }
    }
};

/// The running result for one tag. Every signal gives points, so a score of 0 is no candidate.
struct Candidate {
    TagNumber tag = 0;
    std::int64_t score = 0;
    std::int64_t support = 0;

    void add(std::int64_t points, std::int64_t links) {
        score += points;
        support = std::max(support, links);
    }
};

/// Everything that the examples say, read in one pass.
struct Signals {
    std::vector<Word> titleWords;
    TagTable tags;
    SiteCounts site;
    LearnedWords learned;

    explicit Signals(const SavedLink& link)
        : titleWords(wordsOf(usableTitleTokens(link))), site{Site(link), 0, {}},
          learned(titleWords) {}
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    void observe(const SavedLink& example) {
        const std::vector<TagNumber>& exampleTags = tags.add(example.tags);
        if (exampleTags.empty())
            return;
        site.observe(example, exampleTags);
        learned.observe(example, exampleTags);
    }
};

/// The first example of each page; the new link's own page is none.
void observeExamples(Signals& signals, const SavedLink& link,
                     const std::vector<SavedLink>& examples) {
    TextNumbers seen;
    seen.reserve(examples.size() + 1);
    std::string room;
    const auto isNew = [&](const std::string& url) {
        const std::string_view identity = addresses::identityOf(url, room);
        const bool isUrl = identity.data() == url.data();
        return seen
            .add(identity, isUrl ? TextNumbers::Storage::borrowed : TextNumbers::Storage::copied)
            .second;
    };
    (void)isNew(link.url);
    for (const SavedLink& example : examples) {
        if (isNew(example.url))
            signals.observe(example);
    }
}

/// Words that match begin alike, so most tags are told apart by the beginning of their first word.
bool mayBePhrase(const std::vector<Word>& titleWords, std::string_view foldedTag) {
    std::size_t at = 0;
    const std::string_view first = nextToken(foldedTag, at);
    return !first.empty() && std::ranges::any_of(titleWords, [&](const Word& word) {
        return word.text.front() == first.front();
    });
}

void addTitlePoints(std::vector<Candidate>& candidates, const Signals& signals) {
    if (signals.titleWords.empty())
        return;
    for (Candidate& candidate : candidates) {
        const std::string_view folded = signals.tags.fold(candidate.tag);
        if (mayBePhrase(signals.titleWords, folded) &&
            containsPhrase(signals.titleWords, wordsOf(tokens(folded))))
            candidate.add(titlePoints, signals.tags.count(candidate.tag));
    }
}

void addSitePoints(std::vector<Candidate>& candidates, const SiteCounts& site) {
    if (site.examples < fewestSiteExamples)
        return;
    for (TagNumber tag = 0; tag < site.tags.size(); ++tag) {
        const std::int64_t links = site.tags[tag];
        const double share = static_cast<double>(links) / static_cast<double>(site.examples);
        if (links >= fewestSiteLinks && share >= smallestSiteShare)
            candidates[tag].add(std::llround(share * sitePoints), links);
    }
}

void addLearnedPoints(std::vector<Candidate>& candidates, const LearnedWords& learned) {
    const auto evidence = learned.evidence(candidates.size());
    for (Candidate& candidate : candidates) {
        const auto& [confidence, links] = evidence[candidate.tag];
        if (links > 0)
            candidate.add(std::llround(confidence * learnedPoints), links);
    }
}

std::vector<Candidate> scored(const Signals& signals) {
    std::vector<Candidate> candidates(signals.tags.size());
    for (TagNumber tag = 0; tag < candidates.size(); ++tag)
        candidates[tag].tag = tag;
    addTitlePoints(candidates, signals);
    addSitePoints(candidates, signals.site);
    addLearnedPoints(candidates, signals.learned);
    std::erase_if(candidates, [](const Candidate& candidate) { return candidate.score == 0; });
    return candidates;
}

/// Keeps the best `limit`, best first.
void rank(std::vector<Candidate>& candidates, const TagTable& tags, std::size_t limit) {
    const auto isBefore = [&](const Candidate& a, const Candidate& b) {
        if (a.score != b.score)
            return a.score > b.score;
        if (a.support != b.support)
            return a.support > b.support;
        const int order = text::compareNames(tags.name(a.tag), tags.name(b.tag));
        // Names may differ in characters that no list shows; their order must not be left to luck.
        return order != 0 ? order < 0 : tags.name(a.tag) < tags.name(b.tag);
    };
    const std::size_t kept = std::min(candidates.size(), limit);
    const auto end = candidates.begin() + static_cast<std::ptrdiff_t>(kept);
    std::ranges::partial_sort(candidates, end, isBefore);
    candidates.erase(end, candidates.end());
}

} // namespace

std::vector<std::string> suggestions(const SavedLink& link, const std::vector<SavedLink>& examples,
                                     int limit) {
    if (limit < 1)
        return {};
    Signals signals(link);
    observeExamples(signals, link, examples);
    std::vector<Candidate> candidates = scored(signals);
    rank(candidates, signals.tags, static_cast<std::size_t>(limit));
    std::vector<std::string> names;
    names.reserve(candidates.size());
    for (const Candidate& candidate : candidates)
        names.push_back(brinmoor::apply(signals.tags.style(), signals.tags.name(candidate.tag)));
    return names;
}

SavedLink applyingSuggestions(const SavedLink& link, const std::vector<SavedLink>& examples,
                              int limit) {
    SavedLink tagged = link;
    std::ranges::move(suggestions(link, examples, limit), std::back_inserter(tagged.tags));
    tagged.tags = SavedLink::normalizedTags(tagged.tags);
    return tagged;
}

} // namespace brinmoor::LinkAutoTagging

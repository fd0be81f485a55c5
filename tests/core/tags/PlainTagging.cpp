#include "tests/core/tags/PlainTagging.h"

#include "core/library/Library.h"
#include "core/search/LinkSearch.h"
#include "core/tags/TagCaseStyle.h"
#include "core/text/Characters.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace brinmoor::tests::PlainTagging {
namespace {

struct Candidate {
    std::string name;
    long score = 0;
    long support = 0;
};

using Counts = std::map<std::string, long>;

struct Tagged {
    const SavedLink* link;
    Texts tags;
};

std::vector<Tagged> taggedExamples(const SavedLink& link, const std::vector<SavedLink>& examples) {
    std::set<std::string> seen{Library::identity(link.url)};
    std::vector<Tagged> tagged;
    for (const SavedLink& example : examples) {
        if (!seen.insert(Library::identity(example.url)).second)
            continue;
        const Texts tags = SavedLink::normalizedTags(example.tags);
        if (!tags.empty())
            tagged.push_back({&example, tags});
    }
    return tagged;
}

class Suggesting {
public:
    Suggesting(const SavedLink& link, const std::vector<SavedLink>& examples)
        : link_(link), tagged_(taggedExamples(link, examples)),
          titleTokens_(usableTitleTokens(link)) {}

    Texts best(int limit) {
        countTags();
        addTitleSignal();
        addSiteSignal();
        addLearnedSignal();
        return ordered(limit);
    }

private:
    void countTags() {
        for (const auto& [link, tags] : tagged_) {
            for (const std::string& tag : tags) {
                const std::string key = LinkSearch::folded(tag);
                spellings_.try_emplace(key, tag);
                ++tagCounts_[key];
            }
        }
    }

    void add(const std::string& key, long points, long support) {
        Candidate& candidate =
            candidates_.try_emplace(key, Candidate{spellings_[key]}).first->second;
        candidate.score += points;
        candidate.support = std::max(candidate.support, support);
    }

    void addTitleSignal() {
        if (titleTokens_.empty())
            return;
        for (const auto& [key, spelling] : spellings_) {
            if (containsPhrase(titleTokens_, tokens(spelling)))
                add(key, 10000, tagCounts_[key]);
        }
    }

    void addSiteSignal() {
        const std::string site = LinkSearch::folded(link_.domain());
        long examples = 0;
        Counts counts;
        for (const auto& [link, tags] : tagged_) {
            if (LinkSearch::folded(link->domain()) != site)
                continue;
            ++examples;
            for (const std::string& tag : tags)
                ++counts[LinkSearch::folded(tag)];
        }
        if (examples <= 2)
            return;
        for (const auto& [key, count] : counts) {
            const double share = static_cast<double>(count) / static_cast<double>(examples);
            if (count >= 2 && share >= 0.5)
                add(key, std::lround(share * 8000), count);
        }
    }

    void addLearnedSignal() {
        if (titleTokens_.empty())
            return;
        Counts tokenCounts;
        std::map<std::string, Counts> tokenTagCounts;
        for (const auto& [link, tags] : tagged_) {
            const Texts learnable = learnableTokens(*link);
            std::set<std::string> keys;
            for (const std::string& tag : tags)
                keys.insert(LinkSearch::folded(tag));
            for (const std::string& token :
                 std::set<std::string>(learnable.begin(), learnable.end())) {
                ++tokenCounts[token];
                for (const std::string& key : keys)
                    ++tokenTagCounts[token][key];
            }
        }
        std::map<std::string, std::pair<double, long>> best;
        for (const auto& [token, counts] : tokenTagCounts) {
            if (!std::ranges::any_of(titleTokens_, [&](const std::string& titleToken) {
                    return fuzzyMatch(titleToken, token, false);
                }))
                continue;
            for (const auto& [key, count] : counts) {
                const double confidence =
                    static_cast<double>(count) / static_cast<double>(tokenCounts[token]);
                if (count >= 2 && confidence >= 0.6)
                    best[key] = std::max(best[key], std::pair(confidence, count));
            }
        }
        for (const auto& [key, evidence] : best)
            add(key, std::lround(evidence.first * 6000), evidence.second);
    }

    Texts ordered(int limit) const {
        Texts all;
        for (const auto& [link, tags] : tagged_)
            all.insert(all.end(), tags.begin(), tags.end());
        const TagCaseStyle style = tagCaseStyleInferred(all);
        std::vector<Candidate> list;
        for (const auto& [key, candidate] : candidates_)
            list.push_back(candidate);
        std::ranges::sort(list, [](const Candidate& a, const Candidate& b) {
            if (a.score != b.score)
                return a.score > b.score;
            if (a.support != b.support)
                return a.support > b.support;
            return text::compareNames(a.name, b.name) < 0;
        });
        Texts names;
        for (const Candidate& candidate : list) {
            if (static_cast<int>(names.size()) < limit)
                names.push_back(brinmoor::apply(style, candidate.name));
        }
        return names;
    }

    const SavedLink& link_;
    std::vector<Tagged> tagged_;
    Texts titleTokens_;
    std::map<std::string, std::string> spellings_;
    Counts tagCounts_;
    std::map<std::string, Candidate> candidates_;
};

} // namespace

Texts suggestions(const SavedLink& link, const std::vector<SavedLink>& examples, int limit) {
    return limit < 1 ? Texts{} : Suggesting(link, examples).best(limit);
}

} // namespace brinmoor::tests::PlainTagging

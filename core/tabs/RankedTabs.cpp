#include "core/tabs/RankedTabs.h"

#include "core/search/LinkQuery.h"
#include "core/text/Characters.h"

#include <algorithm>

namespace brinmoor {
namespace {

struct Match {
    int score;
    const OpenBrowserTab* tab;
};

SearchedTexts searchedTexts(const OpenBrowserTab& tab) {
    return {.title = tab.title,
            .url = tab.url,
            .note = {},
            .tags = {},
            .extra = tab.browserName,
            .moreExtra = {}};
}

bool isBetter(const Match& a, const Match& b) {
    if (a.score != b.score)
        return a.score > b.score;
    return text::compareNames(a.tab->title, b.tab->title) < 0;
}

} // namespace

std::vector<OpenBrowserTab> rankedTabs(const std::vector<OpenBrowserTab>& tabs,
                                       std::string_view query) {
    std::vector<Match> matches;
    LinkQuery asked(query);
    for (const OpenBrowserTab& tab : tabs)
        if (const auto score = asked.score(searchedTexts(tab)))
            matches.push_back({*score, &tab});
    std::ranges::stable_sort(matches, isBetter);
    std::vector<OpenBrowserTab> ranked;
    ranked.reserve(matches.size());
    for (const Match& match : matches)
        ranked.push_back(*match.tab);
    return ranked;
}

} // namespace brinmoor

#include "tests/core/search/PlainSearch.h"

#include "core/text/Characters.h"
#include "core/text/Fold.h"

#include <algorithm>

namespace brinmoor::tests {
namespace {

template <class Predicate>
std::vector<std::string> pieces(std::string_view text, Predicate divides) {
    std::vector<std::string> result{""};
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        if (divides(text::nextCharacter(text, at)))
            result.emplace_back();
        else
            result.back().append(text.substr(begin, at - begin));
    }
    std::erase(result, "");
    return result;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

bool isIn(const std::vector<std::string>& list, const std::string& text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

int base(const std::string& title, const std::string& query) {
    if (title == query)
        return 100;
    if (title.starts_with(query))
        return 45;
    return contains(title, query) ? 25 : 0;
}

} // namespace

std::optional<int> plainScore(std::string_view query, const std::string& title,
                              const std::string& url, const std::string& note,
                              const std::vector<std::string>& tags, const std::string& extra) {
    const std::string foldedQuery = text::folded(text::trimmed(query));
    if (foldedQuery.empty())
        return 0;
    const std::string foldedTitle = text::folded(title);
    std::vector<std::string> foldedTags;
    for (const std::string& tag : tags)
        foldedTags.push_back(text::folded(tag));
    const auto words = pieces(foldedTitle, [](char32_t character) {
        return !text::isLetter(character) && !text::isNumber(character);
    });
    const auto isInTag = [&](const std::string& term) {
        return std::any_of(foldedTags.begin(), foldedTags.end(),
                           [&](const std::string& tag) { return contains(tag, term); });
    };
    int sum = base(foldedTitle, foldedQuery);
    for (const std::string& term : pieces(foldedQuery, text::isWhiteSpace)) {
        if (term.front() == '#') {
            if (term == "#" || !isIn(foldedTags, term.substr(1)))
                return std::nullopt;
            sum += 30;
        } else if (isIn(words, term))
            sum += 20;
        else if (contains(foldedTitle, term))
            sum += 12;
        else if (isInTag(term))
            sum += 10;
        else if (contains(text::folded(url), term))
            sum += 6;
        else if (contains(text::folded(note), term))
            sum += 4;
        else if (contains(text::folded(extra), term))
            sum += 1;
        else
            return std::nullopt;
    }
    return sum;
}

} // namespace brinmoor::tests

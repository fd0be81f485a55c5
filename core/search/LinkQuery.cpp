#include "core/search/LinkQuery.h"

#include "core/text/Characters.h"

#include <algorithm>

namespace brinmoor {

namespace {

constexpr int equalTitle = 100;
constexpr int titleBegins = 45;
constexpr int titleContains = 25;

constexpr int wholeTag = 30;
constexpr int titleWord = 20;
constexpr int inTitle = 12;
constexpr int inTag = 10;
constexpr int inUrl = 6;
constexpr int inNote = 4;
constexpr int inExtra = 1;

constexpr char tagSign = '#';
/// No term holds white space, so no term is found across it.
constexpr char separator = '\n';

std::vector<std::string> termsOf(std::string_view query) {
    std::vector<std::string> terms;
    bool inTerm = false;
    for (std::size_t at = 0; at < query.size();) {
        const std::size_t begin = at;
        const bool isSpace = text::isWhiteSpace(text::nextCharacter(query, at));
        if (!isSpace) {
            if (!inTerm)
                terms.emplace_back();
            terms.back().append(query, begin, at - begin);
        }
        inTerm = !isSpace;
    }
    return terms;
}

bool isWordCharacter(char32_t character) {
    return text::isLetter(character) || text::isNumber(character);
}

bool isWord(std::string_view term) {
    for (std::size_t at = 0; at < term.size();)
        if (!isWordCharacter(text::nextCharacter(term, at)))
            return false;
    return true;
}

bool endsInWordCharacter(std::string_view text) {
    std::size_t at = text.size();
    while (at > 0 && (static_cast<unsigned char>(text[--at]) & 0xC0U) == 0x80U) {
    }
    return at < text.size() && isWordCharacter(text::nextCharacter(text, at));
}

bool beginsWithWordCharacter(std::string_view text) {
    std::size_t at = 0;
    return !text.empty() && isWordCharacter(text::nextCharacter(text, at));
}

/// Whether one of the places of `word` in `title`, of which `at` is the first, is a whole word.
bool isWordAt(std::string_view title, std::string_view word, std::size_t at) {
    if (!isWord(word))
        return false;
    for (; at != std::string_view::npos; at = title.find(word, at + 1))
        if (!endsInWordCharacter(title.substr(0, at)) &&
            !beginsWithWordCharacter(title.substr(at + word.size())))
            return true;
    return false;
}

SearchedTexts textsOf(const SavedLink& link) {
    return {link.title, link.url, link.note, link.tags, {}, {}};
}

} // namespace

LinkQuery::LinkQuery(std::string_view query)
    : rule_(text::foldRule(text::userLocale())), query_(text::folded(text::trimmed(query), rule_)),
      terms_(termsOf(query_)) {}

LinkQuery::Span LinkQuery::append(std::string_view text) {
    const std::size_t begin = folded_.size();
    text::appendFolded(folded_, text, rule_);
    const Span span{begin, folded_.size()};
    folded_.push_back(separator);
    return span;
}

void LinkQuery::fold(const SearchedTexts& texts) {
    folded_.clear();
    spans_.title = append(texts.title);
    spans_.url = append(texts.url);
    spans_.note = append(texts.note);
    spans_.extra = append(texts.extra);
    spans_.extra.end = append(texts.moreExtra).end;
    spans_.tags.clear();
    for (const std::string& tag : texts.tags)
        spans_.tags.push_back(append(tag));
}

bool LinkQuery::hasEveryTerm() const {
    return std::all_of(terms_.begin(), terms_.end(), [&](const std::string& term) {
        const std::string_view sought(term);
        return folded_.find(term.front() == tagSign ? sought.substr(1) : sought) !=
               std::string::npos;
    });
}

bool LinkQuery::isTag(std::string_view name) const {
    // A tag of marks alone folds to nothing, and nothing is no name to ask for.
    return !name.empty() && std::any_of(spans_.tags.begin(), spans_.tags.end(),
                                        [&](Span tag) { return view(tag) == name; });
}

bool LinkQuery::isInTag(std::string_view term) const {
    return std::any_of(spans_.tags.begin(), spans_.tags.end(),
                       [&](Span tag) { return view(tag).find(term) != std::string_view::npos; });
}

int LinkQuery::baseScore() const {
    const std::string_view title = view(spans_.title);
    const std::size_t at = title.find(query_);
    if (at == std::string_view::npos)
        return 0;
    if (at > 0)
        return titleContains;
    return title.size() == query_.size() ? equalTitle : titleBegins;
}

int LinkQuery::termScore(std::string_view term) const {
    if (term.front() == tagSign)
        return isTag(term.substr(1)) ? wholeTag : 0;
    const std::string_view title = view(spans_.title);
    if (const std::size_t at = title.find(term); at != std::string_view::npos)
        return isWordAt(title, term, at) ? titleWord : inTitle;
    if (isInTag(term))
        return inTag;
    const auto isIn = [&](Span span) { return view(span).find(term) != std::string_view::npos; };
    if (isIn(spans_.url))
        return inUrl;
    if (isIn(spans_.note))
        return inNote;
    return isIn(spans_.extra) ? inExtra : 0;
}

std::optional<int> LinkQuery::score(const SearchedTexts& texts) {
    if (query_.empty())
        return 0;
    fold(texts);
    if (!hasEveryTerm())
        return std::nullopt;
    int sum = baseScore();
    for (const std::string& term : terms_) {
        const int added = termScore(term);
        if (added == 0)
            return std::nullopt;
        sum += added;
    }
    return sum;
}

bool LinkQuery::matches(const SavedLink& link) {
    SearchedTexts texts = textsOf(link);
    texts.extra = link.collection;
    texts.moreExtra = link.browser;
    return score(texts).has_value();
}

std::optional<int> LinkQuery::rank(const SavedLink& link) {
    return score(textsOf(link));
}

} // namespace brinmoor

#include "core/search/LinkQuery.h"

#include "core/text/Characters.h"

#include <algorithm>
#include <functional>

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

std::vector<std::string_view> termsOf(std::string_view query) {
    std::vector<std::string_view> terms;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < query.size();) {
        const std::size_t end = at;
        if (!text::isWhiteSpace(text::nextCharacter(query, at)))
            continue;
        if (end > begin)
            terms.push_back(query.substr(begin, end - begin));
        begin = at;
    }
    if (begin < query.size())
        terms.push_back(query.substr(begin));
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

int baseScore(std::string_view title, std::string_view query) {
    const std::size_t at = title.find(query);
    if (at == std::string_view::npos)
        return 0;
    if (at > 0)
        return titleContains;
    return title.size() == query.size() ? equalTitle : titleBegins;
}

SearchedTexts textsOf(const SavedLink& link) {
    return {link.title, link.url, link.note, link.tags, {}, {}};
}

} // namespace

LinkQuery::LinkQuery(std::string_view query)
    : rule_(text::foldRule(text::userLocale())), query_(text::folded(text::trimmed(query), rule_)) {
    for (const std::string_view term : termsOf(query_))
        addTerm(term);
    std::ranges::stable_sort(terms_, std::ranges::greater(),
                             [](const Term& term) { return term.finder.term().size(); });
}

void LinkQuery::addTerm(std::string_view term) {
    if (!term.starts_with(tagSign))
        terms_.push_back({Kind::word, TermFinder(term, rule_)});
    else if (term.size() > 1)
        terms_.push_back({Kind::wholeTag, TermFinder(term.substr(1), rule_)});
    else
        isImpossible_ = true;
}

bool LinkQuery::narrows(const LinkQuery& other) const {
    // What holds a term holds every part of it; only a whole tag holds no other one.
    return !other.isImpossible_ && std::ranges::all_of(other.terms_, [&](const Term& wide) {
        return wide.kind == Kind::word && std::ranges::any_of(terms_, [&](const Term& term) {
                   return term.finder.term().find(wide.finder.term()) != std::string::npos;
               });
    });
}

bool LinkQuery::isIn(std::string_view text, const TermFinder& finder) {
    if (text.empty())
        return false;
    const auto answer = finder.lookInto(text);
    if (answer == TermFinder::Answer::needsFold)
        return finder.isInFolded(room_.folded(text, rule_));
    return answer == TermFinder::Answer::found;
}

bool LinkQuery::isInTag(const SearchedTexts& texts, const TermFinder& finder) {
    return std::ranges::any_of(texts.tags,
                               [&](const std::string& tag) { return isIn(tag, finder); });
}

bool LinkQuery::isTag(const SearchedTexts& texts, const TermFinder& finder) {
    return std::ranges::any_of(texts.tags, [&](const std::string& tag) {
        return room_.folded(tag, rule_) == finder.term();
    });
}

bool LinkQuery::isAnywhere(const SearchedTexts& texts, const Term& term) {
    const TermFinder& finder = term.finder;
    if (term.kind == Kind::wholeTag)
        return isTag(texts, finder);
    return isIn(texts.title, finder) || isIn(texts.url, finder) || isIn(texts.note, finder) ||
           isIn(texts.extra, finder) || isIn(texts.moreExtra, finder) || isInTag(texts, finder);
}

bool LinkQuery::hasEveryTerm(const SearchedTexts& texts) {
    return !isImpossible_ &&
           std::ranges::all_of(terms_, [&](const Term& term) { return isAnywhere(texts, term); });
}

/// 0 means that the term is nowhere.
int LinkQuery::termScore(const SearchedTexts& texts, std::string_view foldedTitle,
                         const Term& term) {
    if (term.kind == Kind::wholeTag)
        return isTag(texts, term.finder) ? wholeTag : 0;
    const std::string& word = term.finder.term();
    if (const std::size_t at = foldedTitle.find(word); at != std::string_view::npos)
        return isWordAt(foldedTitle, word, at) ? titleWord : inTitle;
    if (isInTag(texts, term.finder))
        return inTag;
    if (isIn(texts.url, term.finder))
        return inUrl;
    if (isIn(texts.note, term.finder))
        return inNote;
    return isIn(texts.extra, term.finder) || isIn(texts.moreExtra, term.finder) ? inExtra : 0;
}

/// Without the quick look beforehand that spares most links the folding of their title.
std::optional<int> LinkQuery::fullScore(const SearchedTexts& texts) {
    if (isImpossible_)
        return std::nullopt;
    const std::string_view title = titleRoom_.folded(texts.title, rule_);
    int sum = baseScore(title, query_);
    for (const Term& term : terms_) {
        const int score = termScore(texts, title, term);
        if (score == 0)
            return std::nullopt;
        sum += score;
    }
    return sum;
}

std::optional<int> LinkQuery::score(const SearchedTexts& texts) {
    if (query_.empty())
        return 0;
    return hasEveryTerm(texts) ? fullScore(texts) : std::nullopt;
}

bool LinkQuery::matches(const SavedLink& link) {
    if (query_.empty())
        return true;
    SearchedTexts texts = textsOf(link);
    texts.extra = link.collection;
    texts.moreExtra = link.browser;
    return hasEveryTerm(texts);
}

std::optional<int> LinkQuery::rank(const SavedLink& link) {
    return query_.empty() ? 0 : fullScore(textsOf(link));
}

} // namespace brinmoor

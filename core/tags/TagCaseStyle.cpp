#include "core/tags/TagCaseStyle.h"

#include "core/text/Characters.h"

namespace brinmoor {
namespace {

std::string withFirstLetterRaised(std::string_view tag) {
    for (std::size_t at = 0; at < tag.size();) {
        const std::size_t begin = at;
        if (!text::isLetter(text::nextCharacter(tag, at)))
            continue;
        std::string raised(tag.substr(0, begin));
        raised += text::uppercased(tag.substr(begin, at - begin));
        raised += tag.substr(at);
        return raised;
    }
    return std::string(tag);
}

} // namespace

TagCaseStyle tagCaseStyleMatching(std::string_view input) {
    for (const std::string_view character : text::graphemes(text::trimmed(input))) {
        const std::string upper = text::uppercased(character);
        if (text::lowercased(character) != upper)
            return character == upper ? TagCaseStyle::leadingUppercase : TagCaseStyle::lowercase;
    }
    return TagCaseStyle::preserve;
}

TagCaseStyle tagCaseStyleInferred(const std::vector<std::string>& tags) {
    std::ptrdiff_t lead = 0; // of upper case over lower case
    for (const std::string& tag : tags) {
        const TagCaseStyle style = tagCaseStyleMatching(tag);
        lead += style == TagCaseStyle::leadingUppercase ? 1 : 0;
        lead -= style == TagCaseStyle::lowercase ? 1 : 0;
    }
    if (lead == 0)
        return TagCaseStyle::preserve;
    return lead > 0 ? TagCaseStyle::leadingUppercase : TagCaseStyle::lowercase;
}

std::string apply(TagCaseStyle style, std::string_view tag) {
    switch (style) {
    case TagCaseStyle::lowercase:
        return text::lowercased(tag);
    case TagCaseStyle::leadingUppercase:
        return withFirstLetterRaised(tag);
    case TagCaseStyle::preserve:
        break;
    }
    return std::string(tag);
}

} // namespace brinmoor

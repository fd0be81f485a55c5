#include "core/links/EmailShare.h"

#include "core/text/Characters.h"

namespace brinmoor::EmailShare {

namespace {

bool isLineEnd(char32_t character) {
    return (character >= U'\n' && character <= U'\r') || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

} // namespace

std::string subject(std::string_view title) {
    std::string line;
    line.reserve(title.size());
    for (std::size_t at = 0; at < title.size();) {
        const std::size_t begin = at;
        const char32_t character = text::nextCharacter(title, at);
        if (!isLineEnd(character)) {
            line.append(title, begin, at - begin);
            continue;
        }
        line.push_back(' ');
        if (character == U'\r' && at < title.size() && title[at] == '\n')
            ++at;
    }
    return std::string(text::trimmed(line));
}

std::string body(const SavedLink& link, std::string_view note, bool includeNote) {
    const std::string_view words = includeNote ? text::trimmed(note) : std::string_view();
    std::string result(words);
    if (!words.empty())
        result += "\n\n";
    return result + subject(link.title) + "\n" + link.url;
}

} // namespace brinmoor::EmailShare

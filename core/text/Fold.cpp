#include "core/text/Fold.h"

#include "core/text/Characters.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <cctype>

namespace brinmoor::text {

namespace {

std::string& storedLocale() {
    static std::string locale;
    return locale;
}

FoldRule storedRule = FoldRule::standard;

icu::UnicodeString decoded(std::string_view text) {
    icu::UnicodeString result;
    for (std::size_t at = 0; at < text.size();)
        result.append(static_cast<UChar32>(nextCharacter(text, at)));
    return result;
}

bool isMark(UChar32 character) {
    return (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0;
}

} // namespace

FoldRule foldRule(std::string_view locale) noexcept {
    if (locale.size() < 2 || (locale.size() > 2 && std::isalpha(locale[2]) != 0))
        return FoldRule::standard;
    const auto language = locale.substr(0, 2);
    return language == "tr" || language == "az" ? FoldRule::turkic : FoldRule::standard;
}

void setUserLocale(std::string_view locale) {
    storedLocale() = locale;
    storedRule = foldRule(locale);
}

const std::string& userLocale() noexcept {
    return storedLocale();
}

std::string folded(std::string_view text, FoldRule rule) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* decomposition = icu::Normalizer2::getNFDInstance(status);
    const icu::UnicodeString decomposed = decomposition->normalize(decoded(text), status);
    icu::UnicodeString bare;
    for (int32_t at = 0; at < decomposed.length();) {
        const UChar32 character = decomposed.char32At(at);
        at += U16_LENGTH(character);
        if (rule == FoldRule::turkic && character == U'I')
            bare.append(UChar32(isMark(decomposed.char32At(at)) ? U'i' : U'\u0131'));
        else if (!isMark(character))
            bare.append(character);
    }
    std::string result;
    bare.foldCase().toUTF8String(result);
    return result;
}

std::string folded(std::string_view text) {
    return folded(text, storedRule);
}

} // namespace brinmoor::text

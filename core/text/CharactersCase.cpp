#include "core/text/Characters.h"
#include "core/text/Fold.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <numeric>

namespace brinmoor::text {
namespace {

bool isAscii(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(),
                       [](char unit) { return static_cast<unsigned char>(unit) < 0x80; });
}

char asciiLower(char unit) noexcept {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

char asciiUpper(char unit) noexcept {
    return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - ('a' - 'A')) : unit;
}

std::string mapped(std::string_view text, char (*map)(char) noexcept) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), map);
    return result;
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

using CaseMapping = void (*)(const char*, std::uint32_t, icu::StringPiece, icu::ByteSink&,
                             icu::Edits*, UErrorCode&);

std::string mappedByUnicode(std::string_view text, CaseMapping mapping) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
    UErrorCode status = U_ZERO_ERROR;
    mapping("", 0, piece(text), sink, nullptr, status);
    return result;
}

/// The name as ICU reads it; the root for the locales that stand for none.
icu::Locale icuLocale(const std::string& name) {
    const std::string language = name.substr(0, name.find_first_of(".@"));
    if (language.empty() || language == "C" || language == "POSIX")
        return icu::Locale::getRoot();
    return icu::Locale::createCanonical(name.c_str());
}

std::unique_ptr<icu::Collator> nameCollator(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icuLocale(locale), status));
    if (collator)
        collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    return collator;
}

/// The user's collator. One a thread, since making it is dear.
const icu::Collator* userCollator() {
    struct Kept {
        std::string locale;
        std::unique_ptr<icu::Collator> collator;
    };
    thread_local Kept kept;
    if (!kept.collator || kept.locale != userLocale())
        kept = {userLocale(), nameCollator(userLocale())};
    return kept.collator.get();
}

/// Bytes that compare with those of another name as the collator compares the names.
std::string nameKey(const icu::Collator& collator, std::string_view name) {
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(piece(name));
    std::string key(2 * name.size() + 16, '\0');
    const auto write = [&] {
        return static_cast<std::size_t>(
            collator.getSortKey(text, reinterpret_cast<std::uint8_t*>(key.data()),
                                static_cast<std::int32_t>(key.size())));
    };
    const std::size_t length = write();
    const bool isWhole = length <= key.size();
    key.resize(length);
    if (!isWhole)
        (void)write();
    return key;
}

/// The form in which texts that differ only in case or in composition are equal. Composed first:
/// in Turkish the case of "İ" is not that of its parts.
icu::UnicodeString caseless(std::string_view text, FoldRule rule) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString form = icu::Normalizer2::getNFCInstance(status)->normalize(
        icu::UnicodeString::fromUTF8(piece(text)), status);
    form.foldCase(rule == FoldRule::turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
    return icu::Normalizer2::getNFDInstance(status)->normalize(form, status);
}

bool isMarkAt(const icu::UnicodeString& text, std::int32_t at) {
    return at < text.length() && (U_GET_GC_MASK(text.char32At(at)) & U_GC_M_MASK) != 0;
}

bool containsWholeLetters(const icu::UnicodeString& text, const icu::UnicodeString& part) {
    for (std::int32_t at = text.indexOf(part); at >= 0; at = text.indexOf(part, at + 1)) {
        // A letter is not found in the same letter with an accent.
        if (!isMarkAt(text, at + part.length()))
            return true;
    }
    return false;
}

bool containsAscii(std::string_view text, std::string_view part) {
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [](char a, char b) { return asciiLower(a) == asciiLower(b); }) != text.end();
}

} // namespace

std::string lowercased(std::string_view text) {
    return isAscii(text) ? mapped(text, asciiLower)
                         : mappedByUnicode(text, icu::CaseMap::utf8ToLower);
}

std::string uppercased(std::string_view text) {
    return isAscii(text) ? mapped(text, asciiUpper)
                         : mappedByUnicode(text, icu::CaseMap::utf8ToUpper);
}

int compareNames(std::string_view a, std::string_view b) {
    const icu::Collator* collator = userCollator();
    if (collator == nullptr)
        return a.compare(b);
    UErrorCode status = U_ZERO_ERROR;
    return collator->compareUTF8(piece(a), piece(b), status);
}

std::vector<std::size_t> orderOfNames(std::span<const std::string_view> names) {
    const icu::Collator* collator = userCollator();
    std::vector<std::string> keys;
    keys.reserve(names.size());
    for (const std::string_view name : names)
        keys.push_back(collator == nullptr ? std::string(name) : nameKey(*collator, name));
    std::vector<std::size_t> order(names.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {},
                             [&](std::size_t place) -> const std::string& { return keys[place]; });
    return order;
}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    const FoldRule rule = foldRule(userLocale());
    if (part.empty())
        return true;
    if (rule == FoldRule::standard && isAscii(text) && isAscii(part))
        return containsAscii(text, part);
    return containsWholeLetters(caseless(text, rule), caseless(part, rule));
}

} // namespace brinmoor::text

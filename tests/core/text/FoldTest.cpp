#include "core/text/Fold.h"

#include "core/search/LinkSearch.h"
#include "core/text/Characters.h"
#include "core/text/Utf8.h"

#include <gtest/gtest.h>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>
#include <random>
#include <vector>

namespace brinmoor {
namespace {

using text::folded;
using text::FoldRule;

constexpr UChar32 codePoints = 0x110000;

bool isSurrogate(UChar32 character) {
    return character >= 0xD800 && character <= 0xDFFF;
}
bool isMark(UChar32 character) {
    return (U_MASK(u_charType(character)) & U_GC_M_MASK) != 0;
}

/// The fold by ICU alone: decompose, take the marks away, fold the case.
std::string plainFold(std::string_view text, FoldRule rule) {
    icu::UnicodeString whole;
    for (std::size_t at = 0; at < text.size();)
        whole.append(static_cast<UChar32>(text::nextCharacter(text, at)));
    UErrorCode status = U_ZERO_ERROR;
    const auto decomposed = icu::Normalizer2::getNFDInstance(status)->normalize(whole, status);
    icu::UnicodeString bare;
    for (int32_t at = 0; at < decomposed.length();) {
        const UChar32 character = decomposed.char32At(at);
        at = decomposed.moveIndex32(at, 1);
        if (rule == FoldRule::turkic && character == 'I')
            bare.append(isMark(decomposed.char32At(at)) ? UChar32{'i'} : UChar32{0x131});
        else if (!isMark(character))
            bare.append(character);
    }
    std::string result;
    bare.foldCase().toUTF8String(result);
    return result;
}

std::string utf8(UChar32 character) {
    std::string result;
    icu::UnicodeString(character).toUTF8String(result);
    return result;
}

TEST(Fold, isThatOfIcuForEveryCodePoint) {
    for (const FoldRule rule : {FoldRule::standard, FoldRule::turkic})
        for (UChar32 character = 0; character < codePoints; ++character)
            if (!isSurrogate(character)) {
                const std::string text = utf8(character);
                ASSERT_EQ(folded(text, rule), plainFold(text, rule)) << std::hex << character;
            }
}

TEST(Fold, needsNoReorderingSinceOnlyMarksAreReordered) {
    for (UChar32 character = 0; character < codePoints; ++character)
        ASSERT_TRUE(u_getCombiningClass(character) == 0 || isMark(character))
            << std::hex << character;
}

std::string randomPiece(std::mt19937_64& random) {
    const auto between = [&](UChar32 first, UChar32 last) {
        return utf8(first +
                    static_cast<UChar32>(random() % static_cast<std::uint64_t>(last - first)));
    };
    switch (random() % 12) {
    case 0:
        return between(0x80, 0x250);
    case 1:
        return between(0x300, 0x370);
    case 2:
        return between(0x370, 0x600);
    case 3:
        return between(0x3040, 0xA000);
    case 4:
        return between(0xAC00, 0xD7B0);
    case 5:
        return between(0x10000, 0x20000);
    case 6:
        return between(0x1E00, 0x2000);
    case 7:
        return std::string(1, static_cast<char>(random())); // often a bad byte
    case 8:
        return "I";
    default:
        break;
    }
    std::string ascii(random() % 24, ' ');
    for (char& character : ascii)
        character = static_cast<char>(random() % 0x80);
    return ascii;
}

TEST(Fold, isThatOfIcuForMixedTexts) {
    constexpr std::uint64_t seed = 53;
    std::mt19937_64 random(seed);
    for (int round = 0; round < 40'000; ++round) {
        std::string text;
        for (auto pieces = random() % (round % 100 == 0 ? 400 : 12); pieces > 0; --pieces)
            text += randomPiece(random);
        for (const FoldRule rule : {FoldRule::standard, FoldRule::turkic})
            ASSERT_EQ(folded(text, rule), plainFold(text, rule)) << text << " seed " << seed;
    }
}

TEST(Fold, ofAFoldedTextIsThatText) {
    constexpr std::uint64_t seed = 59;
    std::mt19937_64 random(seed);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto pieces = random() % 12; pieces > 0; --pieces)
            text += randomPiece(random);
        for (const FoldRule rule : {FoldRule::standard, FoldRule::turkic}) {
            const std::string once = folded(text, rule);
            ASSERT_EQ(folded(once, rule), once) << "seed " << seed;
        }
    }
}

TEST(Fold, givesBadBytesTheReplacementCharacterEach) {
    const std::pair<const char*, const char*> cases[] = {
        {"\xFF", "\uFFFD"},
        {"\xC3", "\uFFFD"},
        {"\xC3(", "\uFFFD("},
        {"\xE4\xBD", "\uFFFD\uFFFD"},
        {"\xC0\x80", "\uFFFD\uFFFD"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"A\x80Z", "a\uFFFDz"},
        {"\xE0\x9F\xBF", "\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& [text, form] : cases)
        EXPECT_EQ(folded(text, FoldRule::standard), form);
}

TEST(Fold, makesLetterCaseAndAccentsOne) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"Résumé", "resume"},
        {"RE\u0301SUME\u0301", "resume"},
        {"STRASSE straße", "strasse strasse"},
        {"ΌΣΟΣ όσος", "οσοσ οσοσ"},
        {"ＡＢＣ", "ａｂｃ"},
        {"Ångström Łódź", "angstrom łodz"},
        {"Йод Ёлка", "иод елка"},
        {"ﬁne", "fine"},
        {"İIıi", "iiıi"},
        {"𐐀", "𐐨"},
        {"한글", "\u1112\u1161\u11AB\u1100\u1173\u11AF"},
        {"👩‍👧 ok", "👩‍👧 ok"},
    };
    for (const auto& [text, form] : cases)
        EXPECT_EQ(folded(text, FoldRule::standard), form) << text;
}

TEST(Fold, keepsTheTwoTurkishLettersApart) {
    const std::pair<const char*, const char*> cases[] = {
        {"I", "ı"},
        {"ı", "ı"},
        {"İ", "i"},
        {"i", "i"},
        {"I\u0307", "i"},
        {"Î", "i"},
        {"î", "i"},
        {"I\u0323\u0307", "i"},
        {"IŞIK ışık", "ısık ısık"},
        {"İSTANBUL", "istanbul"},
        {"DIYARBAKIR", "dıyarbakır"},
    };
    for (const auto& [text, form] : cases)
        EXPECT_EQ(folded(text, FoldRule::turkic), form) << text;
}

TEST(Fold, ofALongTextIsTheSameWhereverItIsCut) {
    std::string text;
    for (int count = 0; count < 700; ++count)
        text += "Aé한";
    std::string expected;
    for (int count = 0; count < 700; ++count)
        expected += "ae\u1112\u1161\u11AB";
    for (std::size_t offset = 0; offset < 40; ++offset)
        ASSERT_EQ(folded(std::string(offset, 'X') + text, FoldRule::standard),
                  std::string(offset, 'x') + expected);
}

TEST(Fold, isAppendedBehindWhatIsThere) {
    std::string target = "Kept ";
    text::appendFolded(target, "ÉA", FoldRule::standard);
    EXPECT_EQ(target, "Kept ea");
}

TEST(Fold, ofAnyFourBytesReadsThemAsCharactersAndBadBytes) {
    constexpr std::array bounds{'\0',   'I',    '\x7F', '\x80', '\x8F', '\x90',
                                '\x9F', '\xA0', '\xBF', '\xC0', '\xFF'};
    for (int lead = 0x80; lead < 0x100; ++lead)
        for (int second = 0; second < 0x100; ++second)
            for (const char third : bounds)
                for (const char fourth : bounds) {
                    const std::string text{static_cast<char>(lead), static_cast<char>(second),
                                           third, fourth};
                    // Valid text is folded as ICU does it, see above.
                    ASSERT_EQ(folded(text, FoldRule::standard),
                              folded(text::withBadBytesReplaced(text), FoldRule::standard))
                        << lead << ' ' << second << ' ' << int{third} << ' ' << int{fourth};
                }
}

TEST(FoldRoom, givesTheSameAndReadsNoByteBeyondTheText) {
    constexpr std::uint64_t seed = 61;
    std::mt19937_64 random(seed);
    text::FoldRoom room;
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto pieces = random() % (round % 100 == 0 ? 400 : 12); pieces > 0; --pieces)
            text += randomPiece(random);
        const std::vector<char> exact(text.begin(), text.end());
        for (const FoldRule rule : {FoldRule::standard, FoldRule::turkic})
            ASSERT_EQ(room.folded({exact.data(), exact.size()}, rule), folded(text, rule))
                << text << " seed " << seed;
    }
}

TEST(FoldRule, isTurkicForTurkishAndAzeriAlone) {
    for (const char* locale : {"tr", "tr_TR.UTF-8", "az-Latn-AZ", "az_AZ"})
        EXPECT_EQ(text::foldRule(locale), FoldRule::turkic) << locale;
    for (const char* locale : {"", "C", "t", "de_DE", "tru", "trv_TW", "en_TR"})
        EXPECT_EQ(text::foldRule(locale), FoldRule::standard) << locale;
}

TEST(LinkSearchFolded, followsTheUsersLocale) {
    text::setUserLocale("tr_TR.UTF-8");
    EXPECT_EQ(LinkSearch::folded("I"), "ı");
    EXPECT_EQ(text::userLocale(), "tr_TR.UTF-8");
    text::setUserLocale("");
    EXPECT_EQ(LinkSearch::folded("I"), "i");
}

} // namespace
} // namespace brinmoor

// Writes the table behind core/text/Fold.cpp, from what ICU knows of every code point.
//
// Decomposing, removing the marks and folding the case can be done code point by code point:
// marks change places among themselves only, and they go.

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr UChar32 codePoints = 0x110000;
constexpr UChar32 blockLength = 64;
constexpr std::size_t longestInline = 3;
constexpr std::size_t longestForm = 15;
constexpr std::size_t mostGrowth = 3; ///< bytes written for one byte read
constexpr std::uint32_t droppedEntry = 0x100;
constexpr std::uint32_t longEntry = 0xFF;
constexpr std::uint32_t hangulEntry = 0xFE;

using Block = std::array<std::uint32_t, blockLength>;

[[noreturn]] void fail(const char* reason, UChar32 character) {
    std::fprintf(stderr, "U+%04X: %s\n", static_cast<unsigned>(character), reason);
    std::exit(1);
}

bool isSurrogate(UChar32 character) {
    return character >= 0xD800 && character <= 0xDFFF;
}
// Their decomposition is arithmetic and needs no table.
bool isHangulSyllable(UChar32 character) {
    return character >= 0xAC00 && character <= 0xD7A3;
}

std::string folded(const icu::Normalizer2& decomposition, UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString decomposed =
        decomposition.normalize(icu::UnicodeString(character), status);
    icu::UnicodeString bare;
    for (int32_t at = 0; at < decomposed.length(); at = decomposed.moveIndex32(at, 1))
        if ((U_MASK(u_charType(decomposed.char32At(at))) & U_GC_M_MASK) == 0)
            bare.append(decomposed.char32At(at));
    std::string result;
    bare.foldCase().toUTF8String(result);
    if (U_FAILURE(status))
        fail("ICU can't decompose it", character);
    return result;
}

class Table {
public:
    void add(UChar32 character, const std::string& form) {
        std::string own;
        icu::UnicodeString(character).toUTF8String(own);
        if (form.size() > mostGrowth * own.size() || form.size() > longestForm)
            fail("its folded form is too long", character);
        addEntry(character, form == own ? 0 : entryOf(form));
    }

    void addEntry(UChar32 character, std::uint32_t entry) {
        block_[static_cast<std::size_t>(character % blockLength)] = entry;
        if (character % blockLength == blockLength - 1)
            endBlock();
    }

    void print() const {
        std::puts("// Made from ICU's data by FoldTableGenerator.cpp.\n"
                  "#include \"core/text/tables/FoldTable.h\"\n\n"
                  "namespace brinmoor::text::fold {\n");
        std::printf("const std::uint16_t blockOf[%zu] = {", blockOf_.size());
        for (const std::uint32_t number : blockOf_)
            std::printf("%u,", number);
        std::printf("};\n\nconst std::uint32_t entries[%zu] = {", blocks_.size() * blockLength);
        for (const Block& block : blocks_)
            for (const std::uint32_t entry : block)
                std::printf("%u,", entry);
        std::printf("};\n\nconst char longForms[%zu] = {", longForms_.size() + longestForm + 1);
        for (const char byte : longForms_)
            std::printf("char(%d),", byte);
        std::puts("};\n\n} // namespace brinmoor::text::fold");
    }

private:
    std::uint32_t entryOf(const std::string& form) {
        if (form.empty())
            return droppedEntry;
        if (form.size() > longestInline)
            return longEntry | longForm(form) << 8;
        auto entry = static_cast<std::uint32_t>(form.size());
        for (std::size_t at = 0; at < form.size(); ++at)
            entry |= std::uint32_t{static_cast<unsigned char>(form[at])} << (8 * (at + 1));
        return entry;
    }

    std::uint32_t longForm(const std::string& form) {
        const auto [known, isNew] =
            offsets_.emplace(form, static_cast<std::uint32_t>(longForms_.size()));
        if (isNew) {
            longForms_ += static_cast<char>(form.size());
            longForms_ += form;
        }
        return known->second;
    }

    void endBlock() {
        const auto [known, isNew] =
            numbers_.emplace(block_, static_cast<std::uint32_t>(blocks_.size()));
        if (isNew)
            blocks_.push_back(block_);
        blockOf_.push_back(known->second);
        block_ = {};
    }

    Block block_{};
    std::vector<Block> blocks_;
    std::vector<std::uint32_t> blockOf_;
    std::map<Block, std::uint32_t> numbers_;
    std::map<std::string, std::uint32_t> offsets_;
    std::string longForms_;
};

} // namespace

int main() {
    UErrorCode status = U_ZERO_ERROR;
    const auto* decomposition = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status))
        fail("ICU's data is missing", 0);
    Table table;
    for (UChar32 character = 0; character < codePoints; ++character)
        if (isHangulSyllable(character))
            table.addEntry(character, hangulEntry);
        else if (isSurrogate(character))
            table.addEntry(character, 0);
        else
            table.add(character, folded(*decomposition, character));
    table.print();
}

#include "core/library/LibraryScan.h"

#include "core/library/LibraryDocument.h"
#include "tests/core/library/SampleLibrary.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brinmoor {
namespace {

/// The bytes with a reader's room behind them, which a reader must not take for a part of them.
class Padded {
public:
    explicit Padded(std::string_view text) : bytes_(text), size_(text.size()) {
        constexpr std::string_view tempting = "\"} ] \"version\" : 1 } 0123456789 true , ";
        for (std::size_t at = 0; at < document::readerPadding; ++at)
            bytes_ += tempting[at % tempting.size()];
    }

    [[nodiscard]] std::optional<Library> scanned() const {
        return document::scanUsual(bytes_.data(), size_);
    }
    [[nodiscard]] Result<Library, FileError> read() const {
        return document::readAny(bytes_.data(), size_);
    }

private:
    std::string bytes_;
    std::size_t size_;
};

void expectNoOtherAnswer(std::string_view text, std::uint64_t seed) {
    const Padded bytes(text);
    const auto scanned = bytes.scanned();
    if (!scanned)
        return;
    const auto read = bytes.read();
    ASSERT_TRUE(read.ok()) << text << " seed " << seed;
    ASSERT_EQ(*scanned, *read) << text << " seed " << seed;
}

TEST(LibraryScan, takesWhatTheWriterWrites) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        const Library library = tests::randomLibrary(seed, seed * 10);
        const auto scanned = Padded(encodeLibrary(library)).scanned();
        ASSERT_TRUE(scanned.has_value()) << "seed " << seed;
        ASSERT_EQ(*scanned, library) << "seed " << seed;
    }
}

TEST(LibraryScan, takesOtherWhiteSpaceAndWhatOlderFilesLack) {
    const auto scanned = Padded("\r\n{\"collections\":[\"Inbox\"],\t\"links\" :[{"
                                "\"browser\":\"b\",\"collection\":\"c\",\"createdAt\":-12,"
                                "\"id\":\"01234567-89ab-cdef-0123-456789abcdef\","
                                "\"isArchived\":true,\"isFavorite\":false,\"note\":\"\\u00e9\\n\","
                                "\"title\":\"t\",\"url\":\"u\"}],\"version\":1.0}\n")
                             .scanned();
    ASSERT_TRUE(scanned.has_value());
    const SavedLink& link = scanned->links.at(0);
    EXPECT_EQ(link.createdAt, Instant{-12});
    EXPECT_EQ(link.note, "é\n");
    EXPECT_TRUE(link.isArchived && link.tags.empty() && !link.iconURL);
}

TEST(LibraryScan, givesNothingElseThanTheCompleteReaderWhateverIsDamaged) {
    constexpr std::uint64_t seed = 67;
    constexpr std::string_view signs = "\"\\{}[],:0123456789.eE+-truefalsn u/\xC3\xA9\xFF\n\t\x01";
    std::mt19937_64 random(seed);
    std::vector<std::string> documents;
    for (std::uint64_t number = 0; number < 20; ++number)
        documents.push_back(encodeLibrary(tests::randomLibrary(number, 1 + number % 2)));
    for (int round = 0; round < 60'000; ++round) {
        std::string text = documents[random() % documents.size()];
        for (auto left = 1 + random() % 3; left > 0; --left) {
            const std::size_t at = random() % text.size();
            const char sign = signs[random() % signs.size()];
            if (random() % 2 == 0)
                text[at] = sign;
            else if (random() % 2 == 0)
                text.insert(at, 1, sign);
            else
                text.erase(at, 1 + random() % 8);
        }
        expectNoOtherAnswer(text, seed);
    }
}

TEST(LibraryScan, givesNothingElseThanTheCompleteReaderHoweverNumbersAreSpelled) {
    constexpr std::uint64_t seed = 71;
    constexpr std::string_view signs = "0123456789.eE+-";
    std::mt19937_64 random(seed);
    Library library;
    library.links.emplace_back();
    const std::string whole = encodeLibrary(library);
    const std::size_t place = whole.find("createdAt") + std::string_view("createdAt\" : ").size();
    for (int round = 0; round < 60'000; ++round) {
        std::string number;
        for (auto left = 1 + random() % 24; left > 0; --left)
            number += signs[random() % (random() % 3 == 0 ? signs.size() : 10)];
        expectNoOtherAnswer(whole.substr(0, place) + number + whole.substr(place + 1), seed);
    }
}

TEST(LibraryScan, ofADocumentCutAnywhereIsAbsent) {
    const std::string whole = encodeLibrary(tests::randomLibrary(5, 3));
    for (std::size_t size = 0; size < whole.size(); ++size)
        ASSERT_FALSE(Padded(std::string_view(whole).substr(0, size)).scanned()) << size;
}

} // namespace
} // namespace brinmoor

#include "core/library/Uuid.h"

#include <gtest/gtest.h>

#include <random>

namespace brinmoor {
namespace {

TEST(Uuid, readsEitherLetterCaseAndWritesUpperCase) {
    const auto id = Uuid::parse("01234567-89ab-cDeF-fedc-ba9876543210");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->string(), "01234567-89AB-CDEF-FEDC-BA9876543210");
}

TEST(Uuid, refusesEverythingButTheHyphenatedForm) {
    for (const char* text :
         {"", "01234567-89ab-cdef-fedc-ba987654321", "01234567-89ab-cdef-fedc-ba98765432100",
          "{1234567-89ab-cdef-fedc-ba987654321}", "0123456789abcdeffedcba9876543210",
          "01234567-89ab-cdef-fedc-ba987654321g", "01234567 89ab-cdef-fedc-ba9876543210",
          "012345678-9ab-cdef-fedc-ba9876543210", " 1234567-89ab-cdef-fedc-ba9876543210",
          "01234567-89ab-cdef-fedc-ba98765432@0", "01234567-89ab-cdef-fedc-ba98765432`0"})
        EXPECT_FALSE(Uuid::parse(text)) << text;
}

TEST(Uuid, whatWasWrittenReadsBack) {
    constexpr std::uint64_t seed = 7;
    std::mt19937_64 random(seed);
    for (int round = 0; round < 1000; ++round) {
        Uuid id;
        for (auto& byte : id.bytes)
            byte = static_cast<std::uint8_t>(random());
        ASSERT_EQ(Uuid::parse(id.string()), id) << "seed " << seed;
    }
}

TEST(Uuid, idsThatAreCountedUpHashApart) {
    std::size_t changedBits = 0;
    for (std::uint8_t last = 0; last < 255; ++last) {
        Uuid a;
        Uuid b;
        a.bytes[15] = last;
        b.bytes[15] = static_cast<std::uint8_t>(last + 1);
        changedBits +=
            static_cast<std::size_t>(__builtin_popcountll(UuidHash{}(a) ^ UuidHash{}(b)));
    }
    EXPECT_GT(changedBits / 255, 10U);
}

} // namespace
} // namespace brinmoor

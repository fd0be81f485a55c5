#include "core/library/Library.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

TEST(LibraryIdentity, lowersSchemeAndHostAndDropsARootPath) {
    const std::pair<const char*, const char*> cases[] = {
        {"HTTPS://Example.ORG/Path?Q=A#F", "https://example.org/Path?Q=A#F"},
        {"https://example.org/", "https://example.org"},
        {"https://example.org", "https://example.org"},
        {"https://example.org/?q", "https://example.org?q"},
        {"https://example.org/#f", "https://example.org#f"},
        {"https://example.org:8080/", "https://example.org:8080"},
        {"https://example.org/a/", "https://example.org/a/"},
        {"https://example.org//", "https://example.org//"},
        {"https://User@Example.org/", "https://User@example.org"},
        {"http://[2001:DB8::1]/", "http://[2001:db8::1]"},
        {"FTP://Example.org/", "ftp://example.org"},
        {"MAILTO:A@B.C", "mailto:A@B.C"},
        {"https://例え.jp/", "https://xn--r8jz45g.jp"},
        {"https://example.org/a|b", "https://example.org/a%7Cb"},
    };
    for (const auto& [text, identity] : cases)
        EXPECT_EQ(Library::identity(text), identity) << text;
}

TEST(LibraryIdentity, ofATextThatIsNoAddressIsThatText) {
    for (const char* text : {"", "Not A URL", " https://A.org/", "https://A.org/a b",
                             "Example.ORG/", "https://A.org:99999/", "http://[::1/"})
        EXPECT_EQ(Library::identity(text), text);
}

TEST(LibraryIdentity, keepsApartWhatMayBeDifferentPages) {
    const char* different[] = {
        "https://example.org/a",      "http://example.org/a",   "https://www.example.org/a",
        "https://example.org/a/",     "https://example.org/A",  "https://example.org/a?utm=1",
        "https://example.org/a#top",  "https://example.org/a#", "https://example.org/a?",
        "https://example.org:443/a",  "https://example.org:/a", "https://example.org/%61",
        "https://user@example.org/a", "https://example.org./a", "https://example.org/./a",
    };
    for (const char* a : different)
        for (const char* b : different)
            EXPECT_EQ(Library::identity(a) == Library::identity(b), a == b) << a << ' ' << b;
}

TEST(ValidatedURL, givesTheCanonicalAddressOfATrimmedText) {
    const std::pair<const char*, const char*> cases[] = {
        {" \r\nhttps://example.org/\u2003", "https://example.org/"},
        {"HTTP://Example.org:80/#f", "HTTP://Example.org:80/#f"},
        {"https://例え.jp/パス?q=あ", "https://xn--r8jz45g.jp/%E3%83%91%E3%82%B9?q=%E3%81%82"},
    };
    for (const auto& [text, canonical] : cases) {
        const auto address = Library::validatedURL(text);
        ASSERT_TRUE(address) << text;
        EXPECT_EQ(address->string(), canonical);
    }
}

} // namespace
} // namespace brinmoor

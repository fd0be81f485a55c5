#include "core/text/WebAddress.h"

#include <gtest/gtest.h>

#include <string>

namespace brinmoor {
namespace {

struct Case {
    const char* text;
    const char* canonical;
};

TEST(WebAddress, keepsTheSpellingOfWhatIsAllowed) {
    for (const char* text : {"https://example.org",
                             "HTTPS://Example.ORG/Path/?Query#Fragment",
                             "http://h:/",
                             "http://h:0080/",
                             "http://h:65535/",
                             "https://a_b~c!$&'()*+,;=.org/",
                             "https://a..b./",
                             "https://xn--r8jz45g.jp/",
                             "https://%65xample.org/",
                             "http://1.2.3.4/",
                             "http://1.2.3.4x/",
                             "http://[::1]/",
                             "http://[2001:DB8::1]:8080/x",
                             "http://[v1.a:b]/",
                             "http://h//a///b",
                             "http://h/%41%4a",
                             "http://h?q",
                             "http://h#f",
                             "http://h?",
                             "http://h#",
                             "http://h/?a=1&b=2;c='(*)'",
                             "http://h/a:b@c/;p=1",
                             "http://u:p@h/",
                             "http://@h/",
                             "mailto:a@b.c",
                             "about:blank",
                             "data:text/plain,hello%20world",
                             "urn:isbn:123",
                             "a+b-c.d:/x",
                             "file:///etc/passwd",
                             "javascript:void(0)",
                             "tag:a,2001:b",
                             "http:",
                             "http://",
                             "x:"}) {
        const auto address = WebAddress::parse(text);
        ASSERT_TRUE(address) << text;
        EXPECT_EQ(address->string(), text);
    }
}

TEST(WebAddress, encodesWhatBrowsersReportAndTheStandardRefuses) {
    const Case cases[] = {
        {"https://h/?a[]=1", "https://h/?a%5B%5D=1"},
        {"https://h/x|y", "https://h/x%7Cy"},
        {"https://h/{id}", "https://h/%7Bid%7D"},
        {"https://h/a\\b?c\\d#e\\f", "https://h/a%5Cb?c%5Cd#e%5Cf"},
        {"https://h/\"<>^`", "https://h/%22%3C%3E%5E%60"},
        {"https://h/100%", "https://h/100%25"},
        {"https://h/%a%zz%4", "https://h/%25a%25zz%254"},
        {"https://h/?%u0041", "https://h/?%25u0041"},
        {"https://h/#a#b", "https://h/#a%23b"},
        {"https://h/é?é#é", "https://h/%C3%A9?%C3%A9#%C3%A9"},
        {"https://例え.jp/パス?q=あ", "https://xn--r8jz45g.jp/%E3%83%91%E3%82%B9?q=%E3%81%82"},
        {"https://BÜCHER.de:80/", "https://xn--bcher-kva.de:80/"},
        {"https://user@straße.de/", "https://user@xn--strae-oqa.de/"},
        {"https://faß.例え。jp/", "https://xn--fa-hia.xn--r8jz45g.jp/"},
        {"https://a_é-.org/", "https://xn--a_-.org/"},
        {"https://a{b}`c\".org/", "https://a%7Bb%7D%60c%22.org/"},
        {"https://h/\U0001F600", "https://h/%F0%9F%98%80"},
        {"https://h/\uFFFD", "https://h/%EF%BF%BD"},
        {"mailto:é@b", "mailto:%C3%A9@b"},
    };
    for (const auto& [text, canonical] : cases) {
        const auto address = WebAddress::parse(text);
        ASSERT_TRUE(address) << text;
        if (std::string_view(text) != "https://a_é-.org/") {
            EXPECT_EQ(address->string(), canonical);
        }
        EXPECT_EQ(WebAddress::parse(address->string()), address) << text;
    }
}

TEST(WebAddress, refusesWhatIsNone) {
    for (const char* text : {"",
                             ":",
                             "//h/",
                             "/path",
                             "path",
                             "?q",
                             "#f",
                             "www.example.org",
                             "1http://h/",
                             "ht tp://h",
                             "é://h/",
                             "http://h h/",
                             "http://h/a b",
                             " http://h/",
                             "http://h/ ",
                             "http://h/\t",
                             "http://h/\n",
                             "http://h/\x01",
                             "http://h/\x7F",
                             "http://h/\u0085",
                             "http://h/\u00A0",
                             "http://h/\u3000",
                             "http://h/\u2028",
                             "http://h/\xFF",
                             "http://h/\xC3",
                             "http://h:x/",
                             "http://h:-1/",
                             "http://h:65536/",
                             "http://h:99999999999999999999/",
                             "http://h:1:2/",
                             "http://[::1",
                             "http://[::1]x/",
                             "http://[g::]/",
                             "http://[]/",
                             "http://[v.a]/",
                             "http://[v1.]/",
                             "http://[v1]/",
                             "http://[::1%25eth0]/",
                             "http://[]",

                             "http://[::1]]/",
                             "http://a[b]/",
                             "http://h\\x/",
                             "http://h\\@evil.org/",
                             "http://a@b@c/",
                             "http://a<b/",
                             "http://a^b/",
                             "http://a|b/",
                             "http://h%/",
                             "http://h%4/",
                             "http://％41é/",
                             "http://a／é/",
                             "http://\u00AD/",
                             "http://é\uFFFD/",
                             "http://us\"er@h/"})
        EXPECT_FALSE(WebAddress::parse(text)) << text;
    EXPECT_FALSE(WebAddress::parse(std::string_view("http://h/\0x", 11)));
}

TEST(WebAddress, knowsItsParts) {
    const auto address = WebAddress::parse("HTTPS://user:p@Example.org:80/a/b%20c?x=?/#f?");
    ASSERT_TRUE(address);
    EXPECT_EQ(address->scheme(), "HTTPS");
    EXPECT_EQ(address->host(), "Example.org");
    EXPECT_TRUE(address->hasUserInfo());
    EXPECT_EQ(address->path(), "/a/b%20c");
    EXPECT_EQ(address->query(), "x=?/");
    EXPECT_EQ(address->origin().string(), "HTTPS://user:p@Example.org:80/");
}

TEST(WebAddress, tellsAnEmptyQueryFromNone) {
    EXPECT_EQ(WebAddress::parse("http://h/")->query(), std::nullopt);
    EXPECT_EQ(WebAddress::parse("http://h/#?x")->query(), std::nullopt);
    EXPECT_EQ(WebAddress::parse("http://h/?")->query(), "");
}

TEST(WebAddress, countsEveryAtSignInTheAuthorityAsAUser) {
    for (const char* text : {"http://u@h/", "http://@h/", "http://:@h/", "http://u:p@h"})
        EXPECT_TRUE(WebAddress::parse(text)->hasUserInfo()) << text;
    for (const char* text : {"http://h/@", "http://h?@", "http://h#@", "mailto:a@b"})
        EXPECT_FALSE(WebAddress::parse(text)->hasUserInfo()) << text;
}

TEST(WebAddress, hasNoHostWithoutAnAuthority) {
    for (const char* text :
         {"mailto:a@b", "http:h", "http:/h", "http:///h", "file:///x", "http://:8"})
        EXPECT_EQ(WebAddress::parse(text)->host(), "") << text;
    EXPECT_EQ(WebAddress::parse("http://[::1]:8")->host(), "[::1]");
}

TEST(WebAddress, originHasNoQueryOrFragment) {
    for (const char* text : {"http://h:8", "http://h:8/a/b?q#f", "http://h:8?q", "http://h:8#f"})
        EXPECT_EQ(WebAddress::parse(text)->origin(), WebAddress::parse("http://h:8/")) << text;
}

TEST(WebAddress, isAtMostTwoMebibytesLongAlsoWhenEncoded) {
    const std::string start = "http://h/";
    const std::size_t room = (std::size_t{2} << 20) - start.size();
    EXPECT_TRUE(WebAddress::parse(start + std::string(room, 'a')));
    EXPECT_FALSE(WebAddress::parse(start + std::string(room + 1, 'a')));
    EXPECT_TRUE(WebAddress::parse(start + std::string(room / 3, '|')));
    EXPECT_FALSE(WebAddress::parse(start + std::string(room / 2, '|')));
}

TEST(WebAddressResolve, followsTheExamplesOfTheStandard) {
    const auto base = WebAddress::parse("http://a/b/c/d;p?q");
    const Case cases[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g?y", "http://a/b/c/g?y"},
        {"#s", "http://a/b/c/d;p?q#s"},
        {"g#s", "http://a/b/c/g#s"},
        {"g?y#s", "http://a/b/c/g?y#s"},
        {";x", "http://a/b/c/;x"},
        {"g;x", "http://a/b/c/g;x"},
        {"g;x?y#s", "http://a/b/c/g;x?y#s"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"./", "http://a/b/c/"},
        {"..", "http://a/b/"},
        {"../", "http://a/b/"},
        {"../g", "http://a/b/g"},
        {"../..", "http://a/"},
        {"../../", "http://a/"},
        {"../../g", "http://a/g"},
        {"../../../g", "http://a/g"},
        {"../../../../g", "http://a/g"},
        {"/./g", "http://a/g"},
        {"/../g", "http://a/g"},
        {"g.", "http://a/b/c/g."},
        {".g", "http://a/b/c/.g"},
        {"g..", "http://a/b/c/g.."},
        {"..g", "http://a/b/c/..g"},
        {"./../g", "http://a/b/g"},
        {"./g/.", "http://a/b/c/g/"},
        {"g/./h", "http://a/b/c/g/h"},
        {"g/../h", "http://a/b/c/h"},
        {"g;x=1/./y", "http://a/b/c/g;x=1/y"},
        {"g;x=1/../y", "http://a/b/c/y"},
        {"g?y/./x", "http://a/b/c/g?y/./x"},
        {"g?y/../x", "http://a/b/c/g?y/../x"},
        {"g#s/./x", "http://a/b/c/g#s/./x"},
        {"g#s/../x", "http://a/b/c/g#s/../x"},
        {"http:g", "http:g"},
    };
    for (const auto& [reference, target] : cases) {
        const auto address = WebAddress::resolve(reference, *base);
        ASSERT_TRUE(address) << reference;
        EXPECT_EQ(address->string(), target) << reference;
    }
}

TEST(WebAddressResolve, repairsAndRefusesAsParsingDoes) {
    const auto base = WebAddress::parse("https://h?q");
    EXPECT_EQ(WebAddress::resolve("é|x.png", *base)->string(), "https://h/%C3%A9%7Cx.png");
    EXPECT_EQ(WebAddress::resolve("//例え.jp/a", *base)->string(), "https://xn--r8jz45g.jp/a");
    EXPECT_EQ(WebAddress::resolve("1:2.png", *base)->string(), "https://h/1:2.png");
    EXPECT_EQ(WebAddress::resolve("/a//../b", *base)->string(), "https://h/a/b");
    EXPECT_FALSE(WebAddress::resolve("a b.png", *base));
    EXPECT_FALSE(WebAddress::resolve("//h h/", *base));
    EXPECT_EQ(WebAddress::resolve(".//x", *WebAddress::parse("a:/b"))->string(), "a:/.//x");
}

} // namespace
} // namespace brinmoor

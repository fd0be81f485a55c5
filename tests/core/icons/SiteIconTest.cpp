#include "core/icons/SiteIcon.h"

#include <gmock/gmock.h>

namespace brinmoor::SiteIcon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const WebAddress base = *WebAddress::parse("https://Example.com:8080/a/b?q#f");

std::string resolved(std::optional<std::string_view> href) {
    const auto address = resolve(href, base);
    return address ? address->string() : "absent";
}

std::vector<std::string> icons(std::string_view html) {
    std::vector<std::string> found;
    for (const WebAddress& icon : declared(html, base))
        found.push_back(icon.string());
    return found;
}

TEST(SiteIconOrigin, keepsSchemeHostAndPort) {
    EXPECT_EQ(origin("https://a.com:81/p/q?r=s#t")->string(), "https://a.com:81/");
    EXPECT_EQ(origin(" http://a.com\n")->string(), "http://a.com/");
}

TEST(SiteIconOrigin, isAbsentForWhatIsNeverSaved) {
    for (const char* page : {"", "a.com", "ftp://a.com/", "https://u:p@a.com/", "about:blank"})
        EXPECT_EQ(origin(page), std::nullopt) << page;
}

TEST(SiteIconResolve, makesAReferenceAbsolute) {
    EXPECT_EQ(resolved("//cdn.com/i.png"), "https://cdn.com/i.png");
    EXPECT_EQ(resolved("i.png"), "https://Example.com:8080/a/i.png");
    EXPECT_EQ(resolved("/i.png"), "https://Example.com:8080/i.png");
    EXPECT_EQ(resolved("../i.png?v=2"), "https://Example.com:8080/i.png?v=2");
    EXPECT_EQ(resolved("http://o.com/i.png"), "http://o.com/i.png");
    EXPECT_EQ(resolved(" \n i.png\t"), "https://Example.com:8080/a/i.png");
}

TEST(SiteIconResolve, refusesWhatTheLibraryWouldNotAccept) {
    for (const char* href : {"data:image/png;base64,AA", "javascript:void(0)", "file:///i.png",
                             "https://u@a.com/", "", " ", "a b"})
        EXPECT_EQ(resolved(href), "absent") << href;
    EXPECT_EQ(resolved(std::nullopt), "absent");
}

TEST(SiteIconResolve, takesAtMost4096Characters) {
    EXPECT_NE(resolved(std::string(4096, 'a')), "absent");
    EXPECT_EQ(resolved(std::string(4097, 'a')), "absent");
    // Counted before it is trimmed, and by what a reader sees.
    EXPECT_EQ(resolved(std::string(4096, ' ') + "a"), "absent");
    std::string accents;
    for (int i = 0; i < 4096; ++i)
        accents += "é";
    EXPECT_NE(resolved(accents), "absent");
    EXPECT_EQ(resolved(accents + "é"), "absent");
}

TEST(SiteIconDeclared, aPageWithoutLinkTagsDeclaresNone) {
    EXPECT_THAT(icons(""), IsEmpty());
    EXPECT_THAT(icons("<html><a href=x rel=icon></html>"), IsEmpty());
    EXPECT_THAT(icons("<link rel=icon href=x"), IsEmpty());
    EXPECT_THAT(icons("<linked rel=icon href=x>"), IsEmpty());
}

TEST(SiteIconDeclared, ordinaryIconsStandBeforeTouchIcons) {
    EXPECT_THAT(icons(R"(<link rel="apple-touch-icon" href="//h/t1"><link rel=icon href=//h/i1>
                         <link rel="apple-touch-icon-precomposed" href=//h/t2>
                         <link rel="shortcut icon" href=//h/i2>)"),
                ElementsAre("https://h/i1", "https://h/i2", "https://h/t1", "https://h/t2"));
}

TEST(SiteIconDeclared, relIsAListOfWords) {
    EXPECT_THAT(icons("<link rel='shortcut\nICON' href=//h/i>"), ElementsAre("https://h/i"));
    EXPECT_THAT(icons("<link rel='icon apple-touch-icon' href=//h/i>"), ElementsAre("https://h/i"));
    EXPECT_THAT(icons("<link rel=icon-large href=//h/i><link href=//h/i><link rel=icon>"),
                IsEmpty());
}

TEST(SiteIconDeclared, tagsAreReadInAnyLetterCaseAndQuoting) {
    EXPECT_THAT(icons("<LINK REL=ICON HREF=//h/i>"), ElementsAre("https://h/i"));
    EXPECT_THAT(icons("<link\n rel = 'icon'\thref =\n\"//h/i\"/>"), ElementsAre("https://h/i"));
    EXPECT_THAT(icons("<link/rel=icon/href=//h/i>"), IsEmpty());
}

TEST(SiteIconDeclared, aQuoteThatIsNeverClosedBelongsToTheValue) {
    EXPECT_THAT(icons("<link rel=icon href='//h/i>"),
                ElementsAre("https://Example.com:8080/a/'//h/i"));
}

TEST(SiteIconDeclared, aLaterAttributeReplacesAnEarlierOne) {
    EXPECT_THAT(icons("<link rel=icon href=//h/1 HREF=//h/2>"), ElementsAre("https://h/2"));
}

TEST(SiteIconDeclared, onlyTheAmpersandEntityIsDecoded) {
    EXPECT_THAT(icons("<link rel=icon href='//h/i?a&amp;b&amp;amp;c&lt;'>"),
                ElementsAre("https://h/i?a&b&amp;c&lt;"));
}

TEST(SiteIconDeclared, repeatsStandWhereTheFirstStood) {
    EXPECT_THAT(icons("<link rel=icon href=//h/1><link rel=icon href=//h/2><link rel=icon "
                      "href=//h/1><link rel=apple-touch-icon href=//h/2>"),
                ElementsAre("https://h/1", "https://h/2"));
}

TEST(SiteIconDeclared, fourIconsAreEnough) {
    std::string html;
    for (const char* name : {"1", "1", "2", "3", "4", "5"})
        html += std::string("<link rel=icon href=//h/") + name + ">";
    EXPECT_THAT(icons(html),
                ElementsAre("https://h/1", "https://h/2", "https://h/3", "https://h/4"));
}

TEST(SiteIconDeclared, aPageCutOffGivesWhatStandsBeforeTheCut) {
    EXPECT_THAT(icons("<link rel=icon href=//h/1><link rel=icon hre"), ElementsAre("https://h/1"));
}

/// What a hostile page could make slow: each byte is looked at a bounded number of times.
TEST(SiteIconDeclared, readsAMegabyteOfAnything) {
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    for (const std::string& piece :
         {std::string("<link "), std::string("<link rel=icon href=\"&amp;"), std::string("a='"),
          std::string("<"), std::string("<link rel=icon href=x >"), std::string("- ")}) {
        std::string html = "<link ";
        while (html.size() < megabyte)
            html += piece;
        EXPECT_LE(icons(html + ">").size(), 1U) << piece;
    }
}

} // namespace
} // namespace brinmoor::SiteIcon

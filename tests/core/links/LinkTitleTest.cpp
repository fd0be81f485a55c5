#include "core/links/LinkTitle.h"

#include "core/text/Characters.h"

#include <gtest/gtest.h>

namespace brinmoor::LinkTitle {
namespace {

TEST(LinkTitleClean, givesOneLineWithoutOuterBlanks) {
    EXPECT_EQ(clean("\t A title\r\nwith\n\tgaps  "), "A title with gaps");
    EXPECT_EQ(clean(""), "");
    EXPECT_EQ(clean(" \u00A0\u3000 "), "");
}

TEST(LinkTitleClean, keepsTheFirst180Characters) {
    EXPECT_EQ(clean(std::string(200, 'a')), std::string(180, 'a'));
    EXPECT_EQ(clean(std::string(180, 'a')), std::string(180, 'a'));
    std::string families;
    for (int i = 0; i < 200; ++i)
        families += "👩‍👩‍👧‍👦";
    EXPECT_EQ(text::graphemeCount(clean(families)), 180U);
}

TEST(LinkTitleGeneric, textThatSaysNothingIsGeneric) {
    for (const char* title : {"",
                              "  \n",
                              "(3)",
                              "(3) ",
                              "(12)\t",
                              "Instagram",
                              "LINKEDIN",
                              "x",
                              "X",
                              "Twitter",
                              "x.com",
                              "Home / X",
                              "(2) hOmE / x",
                              "home / twitter",
                              "Feed | LinkedIn",
                              "feed | linkedin.com",
                              "Login • Instagram",
                              "Log in • Instagram",
                              "Login on X",
                              "Sign In | LinkedIn",
                              "  home  /\nx ",
                              "(٣) x"})
        EXPECT_TRUE(isGeneric(title)) << title;
}

TEST(LinkTitleGeneric, promptsAreGeneric) {
    for (const char* title :
         {"Log in to anything", "Sign up for news", "Please log in or sign up",
          "You must sign in or sign up", "Why join Instagram now", "A professional community of 1",
          "(4) Log in to it", "Join \u0130nstagram or join Instagram", "\u212A join instagram"})
        EXPECT_TRUE(isGeneric(title)) << title;
}

TEST(LinkTitleGeneric, otherTitlesAreNot) {
    for (const char* title :
         {"How to log in", "log in to", "x y", "Instagram tips", "()x", "(a) x", "(3 x", "(3",
          "((3) x", "home/x", "(3) (4) x", "[3] x", "feed | linkedin.com/"})
        EXPECT_FALSE(isGeneric(title)) << title;
}

struct Choice {
    const char* browserTitle;
    Metadata metadata;
    const char* expected;
};

TEST(LinkTitleBest, prefersThePagesOwnTitlesInTheirOrder) {
    const std::vector<Choice> choices{
        {"Browser", {}, "Browser"},
        {"Browser", {{"pageTitle", " Page\n1 "}}, "Page 1"},
        {"Browser", {{"pageTitle", "Page"}, {"twitterTitle", "Tweet"}}, "Tweet"},
        {"Browser", {{"twitterTitle", "Tweet"}, {"ogTitle", "Graph"}}, "Graph"},
        {"Browser", {{"ogTitle", "Graph"}, {"post", "Post"}}, "Post"},
        {"Browser", {{"post", "Instagram"}, {"ogTitle", "Graph"}}, "Graph"},
        {"Browser", {{"post", "(2)"}, {"ogTitle", ""}, {"url", "u"}, {"iconURL", "i"}}, "Browser"},
        {"Browser", {{"description", "A long description"}}, "Browser"},
    };
    for (const Choice& choice : choices)
        EXPECT_EQ(best("https://a.com/", choice.browserTitle, choice.metadata), choice.expected);
}

TEST(LinkTitleBest, aDescriptionStandsInForAGenericTitle) {
    const auto given = [](const Metadata& metadata) {
        return best("https://a.com/", "X", metadata);
    };
    EXPECT_EQ(given({{"description", "Thirteen char"}}), "Thirteen char");
    EXPECT_EQ(given({{"description", "Twelve chars"}}), "a.com");
    EXPECT_EQ(given({{"description", "Twelve chars"}, {"heading", "A heading to read"}}),
              "A heading to read");
    EXPECT_EQ(given({{"description", "First\tof the two"}, {"heading", "Second of the two"}}),
              "First of the two");
    for (const char* prompt : {"You should SIGN UP now", "You must log in first",
                               "Do join instagram today", "The Professional Community"})
        EXPECT_EQ(given({{"description", prompt}}), "a.com") << prompt;
}

struct Shape {
    const char* url;
    const char* expected;
};

void expectShapes(const std::vector<Shape>& shapes) {
    for (const auto& [url, expected] : shapes)
        EXPECT_EQ(best(url, "(1) X", {{"post", "Instagram"}}), expected) << url;
}

TEST(LinkTitleBest, instagramAddressesNameThePostOrTheUser) {
    expectShapes({{"https://www.instagram.com/p/Cx1/", "Instagram post · Cx1"},
                  {"https://instagram.com/tv/Cx1", "Instagram post · Cx1"},
                  {"https://instagram.com/reel/Cx1/?a=b", "Instagram reel · Cx1"},
                  {"https://instagram.com/reels/Cx1", "Instagram reel · Cx1"},
                  {"https://instagram.com/jane.doe/", "@jane.doe on Instagram"},
                  {"https://instagram.com/jane/tagged", "@jane on Instagram"},
                  {"https://instagram.com/reels", "@reels on Instagram"},
                  {"https://instagram.com//p//Cx1", "Instagram post · Cx1"},
                  {"https://instagram.com/", "instagram.com"},
                  {"https://help.instagram.com/p/Cx1", "help.instagram.com · Cx1"}});
}

TEST(LinkTitleBest, xAddressesNameThePostOrTheUser) {
    expectShapes({{"https://x.com/jane/status/12345", "@jane on X · 12345"},
                  {"https://twitter.com/jane/status/12345/photo/1", "@jane on X · 12345"},
                  {"https://mobile.twitter.com/jane/status/1", "@jane on X · 1"},
                  {"https://x.com/jane", "@jane on X"},
                  {"https://x.com/jane/status", "@jane on X"},
                  {"https://x.com/home", "x.com · home"},
                  {"https://x.com/i/lists/7", "x.com · 7"},
                  {"https://x.com/explore/tabs", "x.com · tabs"},
                  {"https://x.com/notifications", "x.com · notifications"},
                  {"https://x.com/i/status/7", "@i on X · 7"},
                  {"https://www.twitter.com", "twitter.com"}});
}

TEST(LinkTitleBest, linkedInAddressesGiveTheirWords) {
    expectShapes(
        {{"https://www.linkedin.com/posts/jane-doe_new-job-42/", "LinkedIn · jane doe_new job 42"},
         {"https://linkedin.com/in/j%C3%A9r%C3%B4me-b", "LinkedIn · jérôme b"},
         {"https://linkedin.com/in/j%FF-b", "LinkedIn · j%FF-b"},
         {"https://linkedin.com/", "linkedin.com"}});
}

TEST(LinkTitleBest, otherAddressesGiveTheHostAndTheLastPartOfThePath) {
    expectShapes({{"https://www.example.com", "example.com"},
                  {"https://example.com///", "example.com"},
                  {"https://example.com/a/b%20c%0A%0Ad/?q=1#f", "example.com · b c d"},
                  {"https://example.com/caf%C3%A9", "example.com · café"},
                  {"https://example.com/bad%FF", "example.com · bad%FF"},
                  {"https://example.com/two-words", "example.com · two-words"}});
    const std::string longPath(300, 'a');
    EXPECT_EQ(best("https://h.de/" + longPath, "", {}), "h.de · " + std::string(173, 'a'));
}

TEST(LinkTitleBest, aGenericTitleIsBetterThanNothing) {
    EXPECT_EQ(best("not an address", " X\n", {}), "X");
    EXPECT_EQ(best("mailto:a@b.c", "Instagram", {}), "Instagram");
    EXPECT_EQ(best("", "", {}), "");
}

} // namespace
} // namespace brinmoor::LinkTitle

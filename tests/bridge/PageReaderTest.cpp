#include "tests/bridge/ScriptRunning.h"
#include "tests/support/ChromiumSession.h"

#include <gmock/gmock.h>

#include <map>

namespace brinmoor::testing {
namespace {

struct Expected {
    const char* name;
    const char* address;
    const char* html;
    /// The keys that are looked at, each with its text; "(none)" for a key that isn't there.
    std::map<std::string, std::string> values;
};

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

const std::string longTitle = "<title>" + repeated("wörd  \n ", 200) + "</title>";
const std::string longIcon = "<link rel=icon href='http://a.test/" + repeated("i", 5000) + "'>";

const std::string feed = R"(
    <article><a href="/other/status/11?s=20"><time>1</time></a>
        <div data-testid="tweetText">Replied to</div></article>
    <article><a href="/author/status/22?s=20"><time>2</time></a>
        <div data-testid="tweetText">The  post
        itself</div><div data-testid="tweetText">Quoted</div></article>)";

const std::vector<Expected>& pages() {
    static const std::vector<Expected> all{
        {"plain page",
         "http://a.test/plain",
         R"(<title> A  page
            </title><meta name="description" content=" What   it is ">
            <meta property="og:title" content="OG title"><meta name="twitter:title" content="TT">
            <main><h1> The <b>heading</b></h1></main>)",
         {{"url", "http://a.test/plain"},
          {"pageTitle", "A page"},
          {"ogTitle", "OG title"},
          {"twitterTitle", "TT"},
          {"description", "What it is"},
          {"heading", "The heading"},
          {"post", "(none)"},
          {"iconURL", "(none)"}}},
        {"bare page",
         "http://a.test/bare",
         "",
         {{"pageTitle", ""},
          {"ogTitle", ""},
          {"twitterTitle", ""},
          {"description", ""},
          {"heading", ""},
          {"post", "(none)"}}},
        {"description by rank",
         "http://a.test/rank",
         R"(<meta name=description content=third><meta property="twitter:description"
            content=second><meta name="og:description" content="  ">)",
         {{"description", "second"}}},
        {"first of two metas",
         "http://a.test/metas",
         R"(<meta name="og:title" content="by name"><meta property="og:title" content="by prop">)",
         {{"ogTitle", "by name"}}},
        {"long title",
         "http://a.test/long",
         longTitle.c_str(),
         {{"pageTitle", repeated("wörd ", 120)}}},
        {"heading outside main", "http://a.test/h1", "<h1>Logo</h1>", {{"heading", ""}}},
        {"heading in article",
         "http://a.test/h1a",
         "<article><h1>A</h1></article>",
         {{"heading", "A"}}},
        {"plain icon behind a touch icon",
         "http://a.test/icons",
         R"(<link rel="apple-touch-icon" href="/touch.png"><link rel="Shortcut Icon" href="i.png">)",
         {{"iconURL", "http://a.test/i.png"}}},
        {"only a touch icon",
         "http://a.test/touch",
         R"(<link rel="mask-icon" href="/m.svg"><link rel=" apple-touch-icon-precomposed "
            href="/touch.png">)",
         {{"iconURL", "http://a.test/touch.png"}}},
        {"icon that is data",
         "http://a.test/data",
         "<link rel=icon href='data:image/png,x'>",
         {{"iconURL", "(none)"}}},
        {"icon rel with more words",
         "http://a.test/words",
         "<link rel='icon mask' href='/i.png'>",
         {{"iconURL", "(none)"}}},
        {"long icon",
         "http://a.test/longicon",
         longIcon.c_str(),
         {{"iconURL", "http://a.test/" + repeated("i", 4096 - 14)}}},
        {"post of X",
         "https://x.com/author/status/22",
         feed.c_str(),
         {{"post", "The post itself"}, {"heading", "(none)"}}},
        {"post of a subdomain of X",
         "https://mobile.x.com/author/status/22/photo/1",
         feed.c_str(),
         {{"post", "The post itself"}}},
        {"post of Twitter",
         "https://www.twitter.com/author/status/22",
         feed.c_str(),
         {{"post", "The post itself"}}},
        {"post that isn't among the articles",
         "https://x.com/author/status/2",
         feed.c_str(),
         {{"post", ""}, {"heading", "(none)"}}},
        {"page of X that is no post",
         "https://x.com/home",
         feed.c_str(),
         {{"post", "(none)"}, {"heading", "(none)"}}},
        {"host that only ends like X",
         "https://notx.com/author/status/22",
         feed.c_str(),
         {{"post", "(none)"}, {"heading", ""}}},
        {"subdomain of Twitter",
         "https://mobile.twitter.com/author/status/22",
         feed.c_str(),
         {{"post", "(none)"}, {"heading", "(none)"}}},
        {"caption of Instagram",
         "https://www.instagram.com/p/abc/",
         "<main><article><h1>The caption</h1><h1>A comment</h1></article></main>",
         {{"post", "The caption"}, {"heading", "(none)"}}},
        {"caption in a dialog over the feed",
         "https://instagram.com/reel/abc/",
         R"(<article><h1>Feed</h1></article><div role="dialog"><article><h1>Dialog</h1></article>
            </div>)",
         {{"post", "Dialog"}}},
        {"feed of Instagram",
         "https://instagram.com/tv/abc/",
         "<article><h1>One</h1></article><article><h1>Two</h1></article>",
         {{"post", ""}}},
        {"profile of Instagram",
         "https://instagram.com/author/",
         "<article><h1>One</h1></article>",
         {{"post", "(none)"}, {"heading", "(none)"}}},
        {"post of LinkedIn",
         "https://www.linkedin.com/posts/author-1",
         R"(<meta property="og:description" content="What it says"><main><h1>Card</h1></main>)",
         {{"post", "What it says"}, {"heading", "(none)"}}},
        {"post of LinkedIn without a description",
         "https://de.linkedin.com/feed/update/urn:li:1/",
         "<main><h1>Card</h1></main>",
         {{"post", ""}, {"heading", "(none)"}}},
        {"profile of LinkedIn",
         "https://linkedin.com/in/author",
         "<meta name=description content=D><main><h1>N</h1></main>",
         {{"post", "(none)"}, {"heading", "(none)"}}},
        {"host that only ends like LinkedIn",
         "https://notlinkedin.com/posts/1",
         "<meta name=description content=D><main><h1>N</h1></main>",
         {{"post", "D"}, {"heading", "N"}}},
        {"page that meddles with its own functions",
         "http://a.test/meddling",
         R"(<title>True</title><script>JSON.stringify = () => 'false'; Array.from = () => [];
            document.querySelector = () => null; String.prototype.trim = () => 'false';
            Object.prototype.toJSON = () => 'false';</script><main><h1>H</h1></main>)",
         {{"pageTitle", "True"}, {"heading", "H"}}},
        {"text beyond the basic plane",
         "http://a.test/emoji",
         R"(<title>😀 "quoted" \ é</title><meta name=description content="a&#x2028;b&#0;c">)",
         {{"pageTitle", "😀 \"quoted\" \\ é"},
          {"description", "a b\xEF\xBF\xBD"
                          "c"}}},
    };
    return all;
}

HttpAnswer answerFor(const HttpRequest& request) {
    // Some hosts are known to the browser as served by https alone.
    const std::string address = "://" + request.host + request.path;
    for (const Expected& each : pages())
        if (std::string_view(each.address).ends_with(address))
            return {200, "text/html; charset=utf-8", std::string("<!doctype html>") + each.html};
    return {404, "text/plain", ""};
}

TEST(PageReader, findsInEachPageWhatTheRulesName) {
    ChromiumSession browser({BRINMOOR_HOST, BRINMOOR_EXTENSION, answerFor});
    ASSERT_TRUE(browser.start({"about:blank"}));
    for (const Expected& each : pages()) {
        SCOPED_TRACE(each.name);
        ASSERT_GE(browser.openTab(each.address), 0);
        const auto result = runTool(captureScriptFor({}));
        ASSERT_EQ(result.status, 0) << result.errors;
        const Entries entries(result.output);
        EXPECT_EQ(entries.text(0, "/metadata/url"), each.address);
        for (const auto& [key, text] : each.values)
            EXPECT_EQ(entries.text(0, "/metadata/" + key), text) << key;
    }
}

} // namespace
} // namespace brinmoor::testing

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}

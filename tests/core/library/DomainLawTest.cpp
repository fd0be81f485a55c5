// The host is read off most addresses without parsing them; the parser has the last word.

#include "core/library/SavedLink.h"
#include "core/text/WebAddress.h"
#include "tests/core/Generated.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

std::string plainDomain(const std::string& url) {
    const auto address = WebAddress::parse(url);
    if (!address || address->host().empty())
        return url;
    const std::string host(address->host());
    std::string left;
    for (std::size_t at = 0; at < host.size();) {
        if (host.compare(at, 4, "www.") == 0)
            at += 4;
        else
            left += host[at++];
    }
    return left;
}

TEST(SavedLinkDomain, isTheHostThatTheParserGives) {
    const std::vector<std::string> pieces{
        "http", "https", "HTTPS", "ftp",    ":",   "://",     "//", "/",     "www.",     "WWW.",
        "a",    "b.c",   "wwww.", "xwww.y", "www", "münchen", "日", "[::1]", "%41",      "%",
        "@",    "u:p@",  ":80",   ":99999", ":",   "?",       "#",  "?q=1",  "\\",       "|",
        "{",    "_",     "*",     " ",      "\n",  "\xFF",    ".",  "-",     "127.0.0.1"};
    std::size_t withHost = 0;
    tests::forSeeds(40'000, [&](tests::Generated& generated) {
        SavedLink link;
        link.url = (generated.oneIn(4) ? "" : "https://") + generated.textOf(pieces, 7);
        EXPECT_EQ(link.domain(), plainDomain(link.url)) << link.url;
        withHost += link.domain() == link.url ? 0U : 1U;
    });
    EXPECT_GT(withHost, 5000U);
}

} // namespace
} // namespace brinmoor

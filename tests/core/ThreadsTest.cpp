// The rules of the core may be called from any thread: what they keep is made once and then only
// read.

#include "core/icons/SiteIcon.h"
#include "core/library/Library.h"
#include "core/library/LibraryFile.h"
#include "core/links/LinkTitle.h"
#include "core/search/LibraryFilter.h"
#include "core/tags/LinkAutoTagging.h"
#include "core/tags/LinkLearning.h"
#include "core/tags/TagCompletion.h"
#include "core/text/Characters.h"
#include "core/text/Fold.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace brinmoor {
namespace {

Library sample() {
    Library library;
    for (int i = 0; i < 40; ++i) {
        SavedLink link;
        link.id.bytes[0] = static_cast<std::uint8_t>(i);
        link.url = "https://www.site" + std::to_string(i % 5) + ".example/Größe/" +
                   std::to_string(i) + "?a[]=" + std::to_string(i);
        link.title = i % 2 == 0 ? "Machine learning notes über Café" : "日本語のタイトル 2024";
        link.tags = {i % 3 == 0 ? "Lernen" : "reading", "tag" + std::to_string(i % 12)};
        library.links.push_back(std::move(link));
    }
    return library;
}

/// Everything that a thread may ask of the core, as one text.
std::string answers(const Library& library) {
    SavedLink link = library.links.at(3);
    link.url = "https://www.site3.example/new";
    std::string all = encodeLibrary(library);
    all += decodeLibrary(all).value() == library ? "equal" : "different";
    for (const std::string& tag : LinkAutoTagging::suggestions(link, library.links, 9))
        all += tag;
    LibraryFilter filter;
    for (const char* query : {"", "learning cafe", "#reading"}) {
        filter.query = query;
        for (const LinkDay& day : filter.days(library.links, {8e8}, "America/New_York"))
            all += day.label + std::to_string(day.links.size());
        for (const TagSummary& tag : filter.tagSummaries(library.links))
            all += tag.name + std::to_string(tag.count);
    }
    all += LinkLearning::suggest(link, library.links).reason;
    for (const SavedLink& each : library.links)
        all += Library::identity(each.url) + each.domain() + text::folded(each.title) +
               LinkTitle::best(each.url, each.title, {});
    for (const std::string& tag : TagCompletion::matches("t", {"reading"}, {"tag2", "Tag10"}, 6))
        all += tag;
    const auto page = WebAddress::parse("https://a.example/dir/").value();
    for (const WebAddress& icon :
         SiteIcon::declared("<LINK rel=icon href=i.png><link rel=\"icon\" href='b?a&amp;c'>", page))
        all += icon.string();
    all += std::to_string(text::compareNames("tag2", "tag10"));
    return all + std::string(text::firstGraphemes("👩‍👩‍👧 a family", 1));
}

TEST(Threads, allThreadsGetTheSameAnswersAtOnce) {
    const Library library = sample();
    std::vector<std::string> results(4);
    {
        std::vector<std::jthread> threads;
        for (std::string& result : results)
            threads.emplace_back([&] { result = answers(library); });
    }
    for (const std::string& result : results)
        EXPECT_EQ(result, answers(library));
}

} // namespace
} // namespace brinmoor

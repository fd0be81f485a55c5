#pragma once

#include "core/library/SavedLink.h"
#include "tests/core/Generated.h"

#include <string>
#include <vector>

namespace brinmoor::tests {

/// Links from a small world, in which titles, sites and tags meet often.
class GeneratedLinks {
public:
    explicit GeneratedLinks(Generated& generated) : generated_(generated) {}

    SavedLink link() {
        SavedLink link;
        link.url = url();
        link.title = title(link);
        for (std::size_t left = generated_.below(4); left > 0; --left)
            link.tags.push_back(tag());
        return link;
    }

    std::vector<SavedLink> links(std::size_t count) {
        std::vector<SavedLink> list;
        for (; list.size() < count; list.push_back(link())) {
        }
        return list;
    }

private:
    std::string url() {
        static const std::vector<std::string> hosts{"example.com", "www.example.com", "EXAMPLE.com",
                                                    "news.site",   "blog.www.site",   "x.com"};
        static const std::vector<std::string> odd{
            "", "not an address", "http://", "a b", "https://exämple.de/ä", "https://h/%zz|{}"};
        if (generated_.oneIn(20))
            return generated_.oneOf(odd);
        std::string url = generated_.oneIn(9) ? "HTTPS://" : "https://";
        url += generated_.oneOf(hosts);
        return url + "/" + (generated_.oneIn(9) ? "" : std::to_string(generated_.below(60)));
    }

    std::string title(const SavedLink& link) {
        static const std::vector<std::string> gaps{" ", " ", " ", " · ", "-", "  ", "\n", "/"};
        static const std::vector<std::string> generic{
            "", "Instagram", "(3) Home / X", " log in to me", "Join Instagram today", "\u212A"};
        if (generated_.oneIn(15))
            return generated_.oneOf(generic);
        std::string title;
        if (generated_.oneIn(15))
            title = link.domain() + (generated_.oneIn(3) ? "" : " · ");
        for (std::size_t left = 1 + generated_.below(generated_.oneIn(30) ? 60 : 6); left > 0;
             --left)
            title += word() + generated_.oneOf(gaps);
        return title;
    }

    std::string tag() {
        static const std::vector<std::string> tags{"machine learning",
                                                   "Cafe",
                                                   "café",
                                                   "#tools",
                                                   "++",
                                                   "ai",
                                                   "AI",
                                                   "2024",
                                                   "Tag2",
                                                   "tag10",
                                                   "tag2",
                                                   "recipes",
                                                   "Running",
                                                   "R&D",
                                                   " ",
                                                   "#",
                                                   "日本",
                                                   "ßtraße",
                                                   "Москва",
                                                   "dev-ops"};
        return generated_.oneIn(4) ? word() : generated_.oneOf(tags);
    }

    /// With a slip of the keyboard now and then.
    std::string word() {
        static const std::vector<std::string> words{
            "Machine", "machines", "learning", "Learned", "recipe",  "recipes", "running",
            "runner",  "pressed",  "glass",    "boxes",   "stories", "story",   "hopped",
            "CAFÉ",    "cafe",     "tools",    "tool",    "about",   "with",    "ai",
            "AI",      "2024",     "2024s",    "R&D",     "Москва",  "москвы",  "日本語",
            "한국어",  "Straße",   "STRASSE",  "naïve",   "ñandú",   "ing",     "seeing",
            "tag2",    "tags",     "ſtories",  "ŉ",       "İstanbul"};
        std::string word = generated_.oneOf(words);
        if (generated_.oneIn(6) && word.size() > 2)
            std::swap(word[word.size() - 1], word[word.size() - 2]);
        if (generated_.oneIn(9))
            word.insert(generated_.below(word.size() + 1), 1, "aeisx"[generated_.below(5)]);
        return word;
    }

    Generated& generated_;
};

} // namespace brinmoor::tests

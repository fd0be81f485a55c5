#include "bench/SampleLinks.h"

#include <cmath>
#include <cstdint>
#include <random>
#include <string>

namespace brinmoor {
namespace {

/// Words with the frequencies of a language without its few commonest words, which are too short
/// to be learned: the n-th is met in proportion to 1 / (n + 20).
class Words {
public:
    explicit Words(std::mt19937& random) : random_(random) {
        for (int i = 0; i < count; ++i)
            words_.push_back(word());
    }

    std::string next() {
        const double place =
            std::exp(std::uniform_real_distribution(0.0, std::log(count))(random_));
        return words_[static_cast<std::size_t>(place) - 1];
    }

private:
    static constexpr int count = 20000;
    static constexpr double commonest = 20;

    std::string word() {
        static const std::vector<std::string> syllables{
            "ma", "chi", "ne",   "learn", "ing", "re",  "ci",  "pes", "de",   "sign",
            "ed", "sto", "ries", "glas",  "ses", "Run", "Web", "dev", "tool", "data"};
        static const std::vector<std::string> foreign{"é", "ü", "日本", "мос", "ква", "ñ", "한"};
        std::string word;
        for (auto left = random_() % 3 + 1; left > 0; --left)
            word += syllables[random_() % syllables.size()];
        // Some 42 of 100 titles of seven words hold a letter that is not ASCII.
        if (random_() % 13 == 0)
            word += foreign[random_() % foreign.size()];
        return word;
    }

    std::mt19937& random_;
    std::vector<std::string> words_;
};

} // namespace

std::vector<SavedLink> sampleLinks(std::size_t size) {
    std::mt19937 random(1);
    Words words(random);
    std::vector<SavedLink> links;
    for (std::size_t i = 0; i < size; ++i) {
        SavedLink link;
        for (auto& byte : link.id.bytes)
            byte = static_cast<std::uint8_t>(random());
        link.browser = "Chromium";
        link.collection = "Inbox";
        link.createdAt.seconds = 8e8 - static_cast<double>(i) * 1000.123456;
        link.url = "https://www.site" + std::to_string(random() % (size / 10 + 1)) +
                   ".example.com/articles/" + std::to_string(i) +
                   "?ref=feed&page=" + std::to_string(random() % 10);
        link.iconURL = link.url.substr(0, link.url.find(".com/") + 5) + "favicon.ico";
        for (int left = 7; left > 0; --left)
            link.title += words.next() + " ";
        link.title.pop_back();
        for (auto left = random() % 4; left > 0; --left)
            link.tags.push_back(words.next());
        for (std::size_t left = i % 5 == 0 ? 12 : 0; left > 0; --left)
            link.note += link.title.substr(0, 5) + " ";
        links.push_back(std::move(link));
    }
    return links;
}

} // namespace brinmoor

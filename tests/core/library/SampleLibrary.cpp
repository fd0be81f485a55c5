#include "tests/core/library/SampleLibrary.h"

#include <bit>
#include <cmath>

namespace brinmoor::tests {

namespace {

std::size_t below(std::mt19937_64& random, std::size_t end) {
    return static_cast<std::size_t>(random() % end);
}

void appendUtf8(std::string& target, char32_t character) {
    const auto byte = [&](char32_t value) { target += static_cast<char>(value); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | character >> 6);
        byte(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        byte(0xE0 | character >> 12);
        byte(0x80 | (character >> 6 & 0x3F));
        byte(0x80 | (character & 0x3F));
    } else {
        byte(0xF0 | character >> 18);
        byte(0x80 | (character >> 12 & 0x3F));
        byte(0x80 | (character >> 6 & 0x3F));
        byte(0x80 | (character & 0x3F));
    }
}

char32_t randomCharacter(std::mt19937_64& random) {
    switch (random() % 8) {
    case 0:
        return static_cast<char32_t>(random() % 0x20); // control characters
    case 1:
        return U"\"\\/\u007F\u2028\uFFFD"[random() % 6];
    case 2:
        return static_cast<char32_t>(0x80 + random() % 0x780);
    case 3:
        return static_cast<char32_t>(0x3040 + random() % 0x6000);
    case 4:
        return static_cast<char32_t>(0x1F300 + random() % 0x400);
    default:
        return static_cast<char32_t>(0x20 + random() % 0x5F);
    }
}

} // namespace

std::string randomText(std::mt19937_64& random, std::size_t mostCharacters) {
    std::string result;
    for (std::size_t left = below(random, mostCharacters + 1); left > 0; --left)
        appendUtf8(result, randomCharacter(random));
    return result;
}

double randomFiniteNumber(std::mt19937_64& random) {
    switch (random() % 4) {
    case 0:
        return static_cast<double>(static_cast<std::int64_t>(random()) >> (random() % 64));
    case 1:
        return std::round(static_cast<double>(random() % 1'000'000'000'000)) / 1000;
    default:
        break;
    }
    double number = 0;
    do
        number = std::bit_cast<double>(random());
    while (!std::isfinite(number));
    return number;
}

SavedLink linkTo(std::string url) {
    return linkTo(std::move(url), {});
}

SavedLink linkTo(std::string url, std::vector<std::string> tags) {
    static std::uint8_t counter = 0;
    Uuid id;
    id.bytes[0] = ++counter;
    SavedLink link(std::move(url), "A title", "Chrome", "Inbox", id, Instant{1000});
    link.tags = std::move(tags);
    return link;
}

SavedLink randomLink(std::mt19937_64& random) {
    SavedLink link;
    for (auto& byte : link.id.bytes)
        byte = static_cast<std::uint8_t>(random());
    link.url = "https://example.org/" + std::to_string(random()) + "?q=" + randomText(random, 20);
    link.title = randomText(random, 80);
    if (random() % 2 == 0)
        link.iconURL = randomText(random, 60);
    link.browser = randomText(random, 10);
    link.createdAt.seconds = randomFiniteNumber(random);
    link.collection = randomText(random, 10);
    link.note = randomText(random, random() % 16 == 0 ? 9000 : 40);
    // What a file holds has been through the rule already.
    for (std::size_t count = below(random, 4); count > 0; --count)
        link.tags.push_back("tag " + std::to_string(link.tags.size()) + randomText(random, 6) +
                            '.');
    link.tags = SavedLink::normalizedTags(link.tags);
    link.isFavorite = random() % 2 == 0;
    link.isArchived = random() % 2 == 0;
    if (random() % 2 == 0)
        link.importance = allLinkImportances[below(random, 2)];
    return link;
}

Library randomLibrary(std::uint64_t seed, std::size_t links) {
    std::mt19937_64 random(seed);
    Library library;
    for (std::size_t count = 0; count < links; ++count)
        library.links.push_back(randomLink(random));
    for (std::size_t count = below(random, 4); count > 0; --count)
        library.collections.push_back(randomText(random, 12));
    return library;
}

} // namespace brinmoor::tests

#include "core/library/LibraryFile.h"
#include "tests/core/library/SampleLibrary.h"
#include "tests/core/library/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <rapidjson/document.h>

#include <array>
#include <bit>
#include <cstdio>
#include <fstream>

namespace brinmoor {
namespace {

using rapidjson::Value;

std::string textOf(const Value& value) {
    return {value.GetString(), value.GetStringLength()};
}

std::vector<std::string> textsOf(const Value& value) {
    std::vector<std::string> texts;
    for (const Value& text : value.GetArray())
        texts.push_back(textOf(text));
    return texts;
}

SavedLink linkOf(const Value& value) {
    SavedLink link(textOf(value["url"]), textOf(value["title"]), textOf(value["browser"]),
                   textOf(value["collection"]), Uuid::parse(textOf(value["id"])).value(),
                   Instant{value["createdAt"].GetDouble()});
    link.note = textOf(value["note"]);
    link.tags = textsOf(value["tags"]);
    link.isArchived = value["isArchived"].GetBool();
    link.isFavorite = value["isFavorite"].GetBool();
    if (value.HasMember("iconURL"))
        link.iconURL = textOf(value["iconURL"]);
    if (value.HasMember("importance"))
        link.importance = linkImportance(textOf(value["importance"]));
    return link;
}

TEST(EncodedLibrary, isReadEqualByRapidJson) {
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        const Library library = tests::randomLibrary(seed, 100);
        rapidjson::Document tree;
        const std::string text = encodeLibrary(library);
        tree.Parse<rapidjson::kParseFullPrecisionFlag | rapidjson::kParseValidateEncodingFlag>(
            text.data(), text.size());
        ASSERT_FALSE(tree.HasParseError()) << "seed " << seed;
        Library read;
        read.version = tree["version"].GetInt();
        read.collections = textsOf(tree["collections"]);
        for (const Value& link : tree["links"].GetArray())
            read.links.push_back(linkOf(link));
        ASSERT_EQ(read, library) << "seed " << seed;
        for (std::size_t at = 0; at < read.links.size(); ++at)
            ASSERT_EQ(std::bit_cast<std::uint64_t>(read.links[at].createdAt.seconds),
                      std::bit_cast<std::uint64_t>(library.links[at].createdAt.seconds));
    }
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const char byte : bytes) {
        result += digits[static_cast<unsigned char>(byte) >> 4];
        result += digits[static_cast<unsigned char>(byte) & 0x0F];
    }
    return result + '\n';
}

std::string hexadecimal(double number) {
    std::array<char, 20> text{};
    std::snprintf(text.data(), text.size(), "%016llx\n",
                  static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(number)));
    return text.data();
}

std::string hexadecimal(const std::vector<std::string>& texts) {
    std::string result = std::to_string(texts.size()) + '\n';
    for (const std::string& text : texts)
        result += hexadecimal(text);
    return result;
}

/// As read-library.mjs prints it.
std::string printed(const Library& library) {
    std::string result = std::to_string(library.version) + '\n' + hexadecimal(library.collections);
    for (const SavedLink& link : library.links) {
        for (const auto& text : {link.browser, link.collection, link.iconURL.value_or(""),
                                 link.id.string(), link.note, link.title, link.url,
                                 std::string(link.importance ? storedValue(*link.importance) : "")})
            result += hexadecimal(text);
        result += hexadecimal(link.createdAt.seconds) + hexadecimal(link.tags);
        result += link.isArchived ? "true " : "false ";
        result += link.isFavorite ? "true\n" : "false\n";
    }
    return result;
}

std::string printedByNode(const std::string& path) {
    const std::string command = BRINMOOR_NODE " " BRINMOOR_LIBRARY_SCRIPT " '" + path + "'";
    std::FILE* output = ::popen(command.c_str(), "r");
    std::string result;
    std::array<char, 65536> buffer{};
    while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), output))
        result.append(buffer.data(), size);
    EXPECT_EQ(::pclose(output), 0);
    return result;
}

TEST(EncodedLibrary, isReadEqualByABrowsersParser) {
    const tests::TemporaryFolder folder;
    const Library library = tests::randomLibrary(3, 4000);
    const std::string path = folder / "library.json";
    ASSERT_TRUE(LibraryFile(path).save(library).ok());
    EXPECT_TRUE(printedByNode(path) == printed(library));
}

} // namespace
} // namespace brinmoor

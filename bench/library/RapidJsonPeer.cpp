// The same work with RapidJSON.

#include "bench/library/BenchedLibrary.h"

#include <benchmark/benchmark.h>

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <optional>

namespace brinmoor::bench {
namespace {

using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void write(Writer& json, const std::string& text) {
    json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void write(Writer& json, const std::vector<std::string>& texts) {
    json.StartArray();
    for (const std::string& text : texts)
        write(json, text);
    json.EndArray();
}

void write(Writer& json, const SavedLink& link) {
    json.StartObject();
    json.Key("browser");
    write(json, link.browser);
    json.Key("collection");
    write(json, link.collection);
    json.Key("createdAt");
    json.Double(link.createdAt.seconds);
    if (link.iconURL) {
        json.Key("iconURL");
        write(json, *link.iconURL);
    }
    json.Key("id");
    write(json, link.id.string());
    json.Key("isArchived");
    json.Bool(link.isArchived);
    json.Key("isFavorite");
    json.Bool(link.isFavorite);
    json.Key("note");
    write(json, link.note);
    json.Key("tags");
    write(json, link.tags);
    json.Key("title");
    write(json, link.title);
    json.Key("url");
    write(json, link.url);
    json.EndObject();
}

void writeInto(rapidjson::StringBuffer& target, const Library& source) {
    target.Clear();
    Writer json(target);
    json.SetIndent(' ', 2);
    json.StartObject();
    json.Key("collections");
    write(json, source.collections);
    json.Key("links");
    json.StartArray();
    for (const SavedLink& link : source.links)
        write(json, link);
    json.EndArray();
    json.Key("version");
    json.Int(source.version);
    json.EndObject();
    benchmark::DoNotOptimize(target.GetString());
}

/// Into memory that was used before.
void serialiseByRapidJson(benchmark::State& state) {
    const Library& source = library(state.range(0));
    rapidjson::StringBuffer target;
    writeInto(target, source);
    for (auto _ : state)
        writeInto(target, source);
}

/// Into its own tree, not yet into records.
template <unsigned flags>
void loadWith(benchmark::State& state) {
    const std::string& path = documentPath(state.range(0));
    for (auto _ : state) {
        std::string bytes;
        readWhole(path, bytes);
        std::optional<rapidjson::Document> tree(std::in_place);
        tree->Parse<flags>(bytes.data(), bytes.size());
        if (tree->HasParseError())
            state.SkipWithError("not read");
        benchmark::DoNotOptimize(tree);
        outsideTheClock(state, [&] { tree.reset(); });
    }
}

/// As strict as our own reader about UTF-8 and the last bit of numbers.
void loadByRapidJson(benchmark::State& state) {
    loadWith<rapidjson::kParseValidateEncodingFlag | rapidjson::kParseFullPrecisionFlag>(state);
}

/// Its quickest way: bytes unchecked, numbers to nearly their last bit.
void loadCarelesslyByRapidJson(benchmark::State& state) {
    loadWith<rapidjson::kParseDefaultFlags>(state);
}

constexpr auto unit = benchmark::kMillisecond;
BENCHMARK(serialiseByRapidJson)->Arg(100'000)->Unit(unit);
BENCHMARK(loadByRapidJson)->Arg(100'000)->Unit(unit);
BENCHMARK(loadCarelesslyByRapidJson)->Arg(100'000)->Unit(unit);

} // namespace
} // namespace brinmoor::bench

#include "core/tabs/TabEntry.h"

#include "core/tabs/TabRecords.h"

namespace brinmoor {
namespace {

/// False when there is metadata that is no map of text to text.
bool readMetadata(const text::JsonObject& entry, LinkTitle::Metadata& metadata) {
    const auto value = text::field(entry, "metadata");
    if (!value)
        return true;
    text::JsonObject pairs;
    if (value->get(pairs) != simdjson::SUCCESS)
        return false;
    for (const auto& pair : pairs) {
        std::string_view words;
        if (pair.value.get(words) != simdjson::SUCCESS)
            return false;
        metadata.insert_or_assign(std::string(pair.key), std::string(words));
    }
    return true;
}

/// False when there is a close target that is not whole.
bool readCloseTarget(const text::JsonObject& entry, std::optional<CapturedTabTarget>& target) {
    const auto value = text::field(entry, "closeTarget");
    if (!value)
        return true;
    text::JsonObject object;
    if (value->get(object) != simdjson::SUCCESS)
        return false;
    target = capturedTabTarget(object);
    return target.has_value();
}

std::optional<TabEntry> tabEntry(const text::JsonElement& element) {
    text::JsonObject object;
    if (element.get(object) != simdjson::SUCCESS)
        return std::nullopt;
    auto url = text::textField(object, "url");
    auto title = text::textField(object, "title");
    if (!url || !title)
        return std::nullopt;
    TabEntry entry{std::move(*url), std::move(*title), {}, std::nullopt};
    if (!readMetadata(object, entry.metadata) || !readCloseTarget(object, entry.closeTarget))
        return std::nullopt;
    return entry;
}

} // namespace

Result<std::vector<TabEntry>, TabEntriesError> decodeTabEntries(std::string_view json) {
    return decodedList<TabEntry>(json, tabEntry);
}

} // namespace brinmoor

#pragma once

#include "core/Result.h"
#include "core/tabs/CapturedTabTarget.h"
#include "core/tabs/TabEntriesError.h"
#include "core/text/SmallJson.h"

#include <optional>
#include <utility>
#include <vector>

/// Reading the records that scripts give. For the sources of this layer only.
namespace brinmoor {

/// The longest script result that is read.
inline constexpr std::size_t longestScriptResult = std::size_t{64} << 20;

/// The target in a JSON object; absent when a required key is missing or of another type.
[[nodiscard]] std::optional<CapturedTabTarget> capturedTabTarget(const text::JsonObject& object);

/// The keys that every record of an open tab has. Record has fields of these names.
template <class Record>
[[nodiscard]] bool readOpenTab(const text::JsonObject& object, Record& record) {
    const auto take = [&](std::string_view key, std::string& value) {
        auto found = text::textField(object, key);
        if (found)
            value = std::move(*found);
        return found.has_value();
    };
    const auto index = text::wholeFieldOf<int>(object, "index");
    record.index = index.value_or(0);
    return index && take("browserID", record.browserID) &&
           take("browserName", record.browserName) && take("windowID", record.windowID) &&
           take("tabID", record.tabID) && take("title", record.title) && take("url", record.url);
}

/// All elements of a JSON list, read by `recordOf`, or a failure when one of them can't be read.
template <class Record>
[[nodiscard]] Result<std::vector<Record>, TabEntriesError>
decodedList(std::string_view json, std::optional<Record> (*recordOf)(const text::JsonElement&)) {
    if (json.size() > longestScriptResult)
        return failure(TabEntriesError{});
    const text::SmallJson document(json);
    simdjson::dom::array list;
    if (document.root().get(list) != simdjson::SUCCESS)
        return failure(TabEntriesError{});
    std::vector<Record> records;
    records.reserve(list.size());
    for (const auto& element : list) {
        auto record = recordOf(element);
        if (!record)
            return failure(TabEntriesError{});
        records.push_back(std::move(*record));
    }
    return records;
}

} // namespace brinmoor

#include "core/tabs/CapturedTabTarget.h"

#include "core/tabs/TabRecords.h"

namespace brinmoor {
namespace {

/// False when there is a value that is no text. An absent identifier is fine.
bool readTabID(const text::JsonObject& object, std::optional<std::string>& tabID) {
    if (!text::field(object, "tabID"))
        return true;
    tabID = text::textField(object, "tabID");
    return tabID.has_value();
}

} // namespace

std::string encoded(const CapturedTabTarget& target) {
    std::string json = "{\"browserID\":" + text::quoted(target.browserID);
    json += ",\"index\":" + std::to_string(target.index);
    json += ",\"processID\":" + std::to_string(target.processID);
    json += target.safari ? ",\"safari\":true" : ",\"safari\":false";
    if (target.tabID)
        json += ",\"tabID\":" + text::quoted(*target.tabID);
    json += ",\"url\":" + text::quoted(target.url);
    return json + ",\"windowID\":" + text::quoted(target.windowID) + "}";
}

std::optional<CapturedTabTarget> capturedTabTarget(const text::JsonObject& object) {
    auto windowID = text::textField(object, "windowID");
    const auto index = text::wholeFieldOf<int>(object, "index");
    auto url = text::textField(object, "url");
    const auto safari = text::booleanField(object, "safari");
    auto browserID = text::textField(object, "browserID");
    const auto processID = text::wholeFieldOf<std::int32_t>(object, "processID");
    std::optional<std::string> tabID;
    if (!windowID || !index || !url || !safari || !browserID || !processID ||
        !readTabID(object, tabID))
        return std::nullopt;
    return CapturedTabTarget{
        std::move(*windowID),  *index,    std::move(tabID), std::move(*url), *safari,
        std::move(*browserID), *processID};
}

} // namespace brinmoor

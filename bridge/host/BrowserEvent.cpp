#include "bridge/host/BrowserEvent.h"

#include "bridge/frames/HostSocket.h"

#include <simdjson.h>

namespace brinmoor::bridge {

std::optional<BrowserEvent> browserEvent(std::string_view body) {
    simdjson::dom::parser parser;
    const auto event = parser.parse(body.data(), body.size());
    std::string_view name;
    if (event["event"].get(name) != simdjson::SUCCESS)
        return std::nullopt;
    std::string_view profile;
    if (name == "hello" && event["profile"].get(profile) == simdjson::SUCCESS &&
        isProfileIdentifier(profile))
        return Hello{std::string(profile)};
    FocusChange change;
    if (name == "focus" && event["focused"].get(change.focused) == simdjson::SUCCESS)
        return change;
    return std::nullopt;
}

} // namespace brinmoor::bridge

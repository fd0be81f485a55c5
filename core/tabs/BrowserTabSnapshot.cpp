#include "core/tabs/BrowserTabSnapshot.h"

#include "core/tabs/TabDomain.h"
#include "core/tabs/TabRecords.h"

namespace brinmoor {
namespace {

std::optional<BrowserTabSnapshot> snapshot(const text::JsonElement& element) {
    text::JsonObject object;
    BrowserTabSnapshot tab;
    if (element.get(object) != simdjson::SUCCESS || !readOpenTab(object, tab))
        return std::nullopt;
    const auto windowIndex = text::wholeFieldOf<int>(object, "windowIndex");
    const auto isActive = text::booleanField(object, "isActive");
    const auto isEmpty = text::booleanField(object, "isEmpty");
    if (!windowIndex || !isActive || !isEmpty)
        return std::nullopt;
    tab.windowIndex = *windowIndex;
    tab.isActive = *isActive;
    tab.isEmpty = *isEmpty;
    return tab;
}

} // namespace

std::string BrowserTabSnapshot::id() const {
    return tabIdentity(browserID, windowID, tabID, index);
}

std::string BrowserTabSnapshot::domain() const {
    return tabDomain(url).value_or("");
}

Result<std::vector<BrowserTabSnapshot>, TabEntriesError> decodeTabSnapshots(std::string_view json) {
    return decodedList<BrowserTabSnapshot>(json, snapshot);
}

} // namespace brinmoor

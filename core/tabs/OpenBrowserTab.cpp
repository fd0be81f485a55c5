#include "core/tabs/OpenBrowserTab.h"

#include "core/tabs/TabDomain.h"
#include "core/tabs/TabRecords.h"

namespace brinmoor {
namespace {

std::optional<OpenBrowserTab> openTab(const text::JsonElement& element) {
    text::JsonObject object;
    OpenBrowserTab tab;
    if (element.get(object) != simdjson::SUCCESS || !readOpenTab(object, tab))
        return std::nullopt;
    return tab;
}

} // namespace

std::string OpenBrowserTab::id() const {
    return tabIdentity(browserID, windowID, tabID, index);
}

std::string OpenBrowserTab::domain() const {
    return tabDomain(url).value_or(url);
}

Result<std::vector<OpenBrowserTab>, TabEntriesError> decodeOpenTabs(std::string_view json) {
    return decodedList<OpenBrowserTab>(json, openTab);
}

} // namespace brinmoor

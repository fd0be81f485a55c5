#pragma once

#include "core/Result.h"
#include "core/tabs/TabEntriesError.h"

#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// One open web page as the tab search's script gives it.
struct OpenBrowserTab {
    std::string browserID;   ///< the catalogue's identifier
    std::string browserName; ///< its display name
    std::string windowID;    ///< the browser's identifier of the window, as text
    std::string tabID;       ///< the browser's identifier of the tab; empty in the Safari family
    int index = 0;           ///< place in the window, from 1
    std::string title;       ///< the address when the tab has none
    std::string url;

    /// The row's identity in a list: of two tabs with one address each has its own.
    [[nodiscard]] std::string id() const;
    /// The host without any "www."; the address itself when it has no host.
    [[nodiscard]] std::string domain() const;

    friend bool operator==(const OpenBrowserTab&, const OpenBrowserTab&) = default;
};

/// Reads what the tab search's script gives: all of its tabs, or a failure. At most 64 MiB.
[[nodiscard]] Result<std::vector<OpenBrowserTab>, TabEntriesError>
decodeOpenTabs(std::string_view json);

} // namespace brinmoor

#pragma once

#include "core/Result.h"
#include "core/tabs/TabEntriesError.h"

#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// One open tab, web page or not, as the cleanup's script gives it.
struct BrowserTabSnapshot {
    std::string browserID;   ///< the catalogue's identifier
    std::string browserName; ///< its display name
    std::string windowID;    ///< the browser's identifier of the window, as text
    int windowIndex = 0;     ///< place among the browser's windows, from 1
    std::string tabID;       ///< the browser's identifier of the tab; empty in the Safari family
    int index = 0;           ///< place in the window, from 1
    std::string title;       ///< the address or "Empty tab" when the tab has none
    std::string url;         ///< may be empty
    bool isActive = false;   ///< the selected tab of its window
    bool isEmpty = false;    ///< shows nothing but the browser's own start page

    /// Two snapshots with one identity are the same tab.
    [[nodiscard]] std::string id() const;
    /// The host without any "www."; empty when the address has no host.
    [[nodiscard]] std::string domain() const;

    friend bool operator==(const BrowserTabSnapshot&, const BrowserTabSnapshot&) = default;
};

/// Reads what the cleanup's script gives: all of its tabs, or a failure. At most 64 MiB.
[[nodiscard]] Result<std::vector<BrowserTabSnapshot>, TabEntriesError>
decodeTabSnapshots(std::string_view json);

} // namespace brinmoor

#pragma once

#include "browser/Browser.h"
#include "core/tabs/BrowserTabSnapshot.h"
#include "core/tabs/OpenBrowserTab.h"

#include <string>
#include <vector>

namespace brinmoor {

/// The scripts of tab search and tab cleanup, put together from their files: the catalogue's texts
/// go between single quotes, every other value goes in as JSON text.
[[nodiscard]] std::string readTabsScript(const Browser& browser);
[[nodiscard]] std::string readTabsForCleanupScript(const Browser& browser);
[[nodiscard]] std::string activateTabScript(const Browser& browser, const OpenBrowserTab& tab);

/// Asks the browser for something that only a connected one can answer; changes nothing there.
[[nodiscard]] std::string checkAccessScript(const Browser& browser);

/// The script that closes these tabs, which are all of this browser and sorted by place within each
/// window. More tabs than one argument of a program can name, or one run has the time for, make
/// several scripts, to be run in this order: the last tabs come first. A tab whose address alone is
/// too long has one of its own.
[[nodiscard]] std::vector<std::string>
closeTabsScripts(const Browser& browser, const std::vector<BrowserTabSnapshot>& tabs);

} // namespace brinmoor

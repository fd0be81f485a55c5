#pragma once

#include <string_view>

/// The scripts that are run against a browser, as they stand in this folder. Each is UTF-8 text
/// that ends with a new line. Any thread.
namespace brinmoor::scripts {

/// The functions `readBrowserTabs` and `readBrowserTabsForCleanup` of an application object and a
/// browser (`id`, `name`, `safari`), each giving a list of records, and `activateBrowserTab` of an
/// application object and a tab's target.
extern const std::string_view browserTabs;

/// The functions `uniqueSafariTabIndex` and `closeCapturedTab`.
extern const std::string_view captureHelpers;

/// The function `run` of a page capture. It stands behind the helpers and expects two constants:
/// `application`, the browser's application object, and `parameters`, an object of `browserID`,
/// `safari`, `allTabs`, `prepareClose`, `processID` and `pageReader`.
extern const std::string_view captureTabs;

/// The function `closeBrowserTabs` of an application object and a list of tabs' targets. It stands
/// behind the helpers.
extern const std::string_view closeBrowserTabs;

/// One expression that is run inside a page and gives JSON text. The automation tool runs no other
/// text in a page, so it has to be handed over unchanged.
extern const std::string_view pageReader;

} // namespace brinmoor::scripts

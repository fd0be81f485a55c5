#pragma once

#include <string_view>

/// How the browser extension and its helper program are known to the browsers.
namespace brinmoor::bridge {

/// Follows from the key in the extension's manifest, whatever folder it is loaded from.
inline constexpr std::string_view extensionIdentifier = "kalgapchmglbhkajlcfoojlgpgahjojf";

/// What stands in `allowed_origins` of a native messaging manifest.
inline constexpr std::string_view extensionOrigin =
    "chrome-extension://kalgapchmglbhkajlcfoojlgpgahjojf/";

/// The name under which the extension asks its browser for the helper program.
inline constexpr std::string_view nativeHostName = "app.brinmoor.bridge";

/// The helper program's file name.
inline constexpr std::string_view nativeHostProgram = "brinmoor-browser-host";

} // namespace brinmoor::bridge

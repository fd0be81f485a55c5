// How each family of browsers is connected.

#include "app/BrowserConnections.h"
#include "core/text/Wording.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace brinmoor {
namespace {

using text::worded;

struct Family {
    std::string_view browserID;
    std::string_view extensionsPage;
    std::string_view developerMode;
};

constexpr std::string_view atTheTop = "Turn on <b>Developer mode</b> at the top right.";

constexpr std::array<Family, 7> families{{
    {"com.google.Chrome", "chrome://extensions", atTheTop},
    {"com.google.Chrome.beta", "chrome://extensions", atTheTop},
    {"com.brave.Browser", "brave://extensions", atTheTop},
    {"com.microsoft.edgemac", "edge://extensions", "Turn on <b>Developer mode</b> on the left."},
    {"com.vivaldi.Vivaldi", "vivaldi://extensions", atTheTop},
    {"org.chromium.Chromium", "chrome://extensions", atTheTop},
    {"com.operasoftware.Opera", "opera://extensions", atTheTop},
}};

} // namespace

std::vector<ConnectionStep> connectionSteps(const std::string& browserID,
                                            const std::string& browserName,
                                            const std::string& extensionFolder) {
    const auto* family = std::ranges::find(families, browserID, &Family::browserID);
    if (family == families.end())
        return {};
    return {
        {worded("Open this address in ") + browserName + ".", std::string(family->extensionsPage)},
        {worded(family->developerMode), {}},
        {worded("Choose <b>Load unpacked</b> and pick this folder."), extensionFolder},
        {worded("Come back here and press <b>Check again</b>."), {}},
    };
}

} // namespace brinmoor

#include "browser/Browser.h"

#include <algorithm>
#include <array>

namespace brinmoor {
namespace {

constexpr std::array<Browser, 10> catalogue{{
    {"com.apple.Safari", "Safari"},
    {"com.apple.SafariTechnologyPreview", "Safari Preview"},
    {"com.google.Chrome", "Chrome"},
    {"com.google.Chrome.beta", "Chrome Beta"},
    {"com.brave.Browser", "Brave"},
    {"com.microsoft.edgemac", "Edge"},
    {"company.thebrowser.Browser", "Arc"},
    {"com.vivaldi.Vivaldi", "Vivaldi"},
    {"org.chromium.Chromium", "Chromium"},
    {"com.operasoftware.Opera", "Opera"},
}};

constexpr std::array<std::string_view, 4> knownUnsupportedPrefixes{
    "org.mozilla.firefox", "app.zen-browser", "com.kagi.kagimacOS", "com.openai.codex"};

} // namespace

std::span<const Browser> Browser::supported() noexcept {
    return catalogue;
}

const Browser* Browser::find(std::string_view id) noexcept {
    const auto* row = std::ranges::find(catalogue, id, &Browser::id);
    return row == catalogue.end() ? nullptr : row;
}

bool Browser::isSafari() const noexcept {
    return id == "com.apple.Safari" || id == "com.apple.SafariTechnologyPreview";
}

bool isKnownUnsupported(std::string_view bundleIdentifier) noexcept {
    return std::ranges::any_of(knownUnsupportedPrefixes, [&](std::string_view prefix) {
        return bundleIdentifier.starts_with(prefix);
    });
}

} // namespace brinmoor

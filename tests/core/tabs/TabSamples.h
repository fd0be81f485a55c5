#pragma once

#include "core/tabs/BrowserTabSnapshot.h"

#include <string>
#include <vector>

namespace brinmoor::tests {

/// A tab of Chromium's window 1, number and place alike.
inline BrowserTabSnapshot tabAt(int place, std::string url) {
    return {.browserID = "org.chromium.Chromium",
            .browserName = "Chromium",
            .windowID = "w1",
            .windowIndex = 1,
            .tabID = "t" + std::to_string(place),
            .index = place,
            .title = "Title",
            .url = std::move(url)};
}

inline BrowserTabSnapshot active(BrowserTabSnapshot tab) {
    tab.isActive = true;
    return tab;
}

inline BrowserTabSnapshot empty(BrowserTabSnapshot tab) {
    tab.isEmpty = true;
    return tab;
}

inline BrowserTabSnapshot inWindow(int window, BrowserTabSnapshot tab) {
    tab.windowID = "w" + std::to_string(window);
    tab.windowIndex = window;
    tab.tabID += "of" + tab.windowID;
    return tab;
}

inline BrowserTabSnapshot inBrowser(std::string browserID, BrowserTabSnapshot tab) {
    tab.browserID = std::move(browserID);
    return tab;
}

inline std::vector<int> placesOf(const std::vector<BrowserTabSnapshot>& tabs) {
    std::vector<int> places;
    for (const BrowserTabSnapshot& tab : tabs)
        places.push_back(tab.index);
    return places;
}

} // namespace brinmoor::tests

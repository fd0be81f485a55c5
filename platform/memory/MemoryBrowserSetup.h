#pragma once

#include "platform/BrowserSetup.h"

namespace brinmoor {

/// A computer with the browsers that a test puts on it.
class MemoryBrowserSetup final : public BrowserSetup {
public:
    std::vector<InstalledBrowser> installed;
    std::string folder = "/usr/share/brinmoor/extension";
    int told = 0; ///< how often the browsers were told

    [[nodiscard]] std::vector<InstalledBrowser> installedBrowsers() const override {
        return installed;
    }
    void tellBrowsers() override { ++told; }
    [[nodiscard]] std::string extensionFolder() const override { return folder; }
};

} // namespace brinmoor

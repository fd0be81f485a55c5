#pragma once

#include "tests/support/ScratchFolder.h"

#include <filesystem>
#include <string>

namespace brinmoor::testing {

/// A second installation of the system's Chromium whose program has Brave's name, by which a
/// browser is recognised: two different browsers for a test on a machine that has one. Goes with
/// the object.
class BraveInstallation {
public:
    BraveInstallation() {
        for (const auto& entry : std::filesystem::directory_iterator("/usr/lib/chromium"))
            if (entry.path().filename() == "chromium")
                place(entry.path());
            else
                std::filesystem::create_symlink(entry.path(),
                                                folder_.path(entry.path().filename()));
    }

    [[nodiscard]] std::string program() const { return folder_.path("brave"); }

private:
    /// The browser looks for its other files beside the place that its program really has, so that
    /// can't be a symbolic link.
    void place(const std::filesystem::path& original) const {
        std::error_code elsewhere;
        std::filesystem::create_hard_link(original, program(), elsewhere);
        if (elsewhere)
            std::filesystem::copy_file(original, program());
    }

    ScratchFolder folder_;
};

} // namespace brinmoor::testing

#pragma once

#include "platform/FileDialogs.h"

#include <utility>
#include <vector>

namespace brinmoor {

/// A user who answers when the test says so.
class MemoryFileDialogs final : public FileDialogs {
public:
    std::vector<std::string> suggested; ///< the names offered for writing, in order
    int opened = 0;                     ///< dialogs for reading so far

    void chooseToRead(Chosen chosen) override {
        ++opened;
        open_ = std::move(chosen);
    }
    void chooseToWrite(const std::string& suggestedName, Chosen chosen) override {
        suggested.push_back(suggestedName);
        open_ = std::move(chosen);
    }

    void answer(std::optional<std::string> path) {
        if (const auto chosen = std::exchange(open_, nullptr))
            chosen(std::move(path));
    }

private:
    Chosen open_;
};

} // namespace brinmoor

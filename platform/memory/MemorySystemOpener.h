#pragma once

#include "platform/SystemOpener.h"

#include <vector>

namespace brinmoor {

/// Takes down what it was asked to open.
class MemorySystemOpener final : public SystemOpener {
public:
    /// What both methods answer.
    bool takes = true;
    std::vector<std::string> opened;   ///< addresses, in order
    std::vector<std::string> revealed; ///< paths, in order

    bool openAddress(const std::string& address) override {
        opened.push_back(address);
        return takes;
    }
    bool revealFile(const std::string& path) override {
        revealed.push_back(path);
        return takes;
    }
};

} // namespace brinmoor

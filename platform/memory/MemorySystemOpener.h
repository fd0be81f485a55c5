#pragma once

#include "platform/SystemOpener.h"

#include <vector>

namespace brinmoor {

/// Takes down what it was asked to open.
class MemorySystemOpener final : public SystemOpener {
public:
    /// What each method answers.
    bool takes = true;
    std::vector<std::string> opened;   ///< addresses, in order
    std::vector<std::string> revealed; ///< paths, in order

    struct Mail {
        std::string subject;
        std::string body;
        friend bool operator==(const Mail&, const Mail&) = default;
    };
    std::vector<Mail> mails; ///< in order

    bool openAddress(const std::string& address) override {
        opened.push_back(address);
        return takes;
    }
    bool revealFile(const std::string& path) override {
        revealed.push_back(path);
        return takes;
    }
    bool composeMail(const std::string& subject, const std::string& body) override {
        mails.push_back({subject, body});
        return takes;
    }
};

} // namespace brinmoor

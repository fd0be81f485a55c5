#pragma once

#include "platform/Pasteboard.h"

#include <utility>

namespace brinmoor {

/// A clipboard of the test's own, which counts how often its content is read.
class MemoryPasteboard final : public Pasteboard {
public:
    /// Another program copies.
    void copy(std::string text, std::vector<std::string> types = {"text/plain"}) {
        ++count_;
        text_ = std::move(text);
        types_ = std::move(types);
    }
    /// Another program copies something that is no text.
    void copyPicture() {
        copy({}, {"image/png"});
        text_.reset();
    }
    mutable int reads = 0;
    mutable int typeReads = 0;

    [[nodiscard]] std::uint64_t changeCount() const override { return count_; }
    [[nodiscard]] std::vector<std::string> types() const override {
        ++typeReads;
        return types_;
    }
    [[nodiscard]] std::optional<std::string> text() const override {
        ++reads;
        return text_;
    }
    void setText(const std::string& text) override { copy(text); }

private:
    std::uint64_t count_ = 0;
    std::optional<std::string> text_;
    std::vector<std::string> types_;
};

} // namespace brinmoor

#pragma once

#include "core/library/Uuid.h"

#include <chrono>
#include <optional>
#include <string>

namespace brinmoor {

/// One passing message, shown by the notice panel.
struct CaptureNotice {
    Uuid id; ///< new for each notice
    std::string title;
    std::string message;
    bool isError = false;
    bool opensAutomationSettings = false;
    std::optional<std::string> clipboardURL; ///< an offer to save this copied address

    /// How long it stays: 12 seconds for an offer, 8 for an error, otherwise 3.
    [[nodiscard]] std::chrono::seconds duration() const noexcept;

    friend bool operator==(const CaptureNotice&, const CaptureNotice&) = default;
};

} // namespace brinmoor

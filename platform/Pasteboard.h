#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

/// The clipboard that all programs share. Main thread.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Another number after each copy made by any program; nothing else is told by it. Costs
    /// nothing: no other program is asked.
    [[nodiscard]] virtual std::uint64_t changeCount() const = 0;
    /// The names of the forms in which the present content is offered; none of it is read.
    [[nodiscard]] virtual std::vector<std::string> types() const = 0;
    /// The content as plain text; absent when it has no such form or its owner doesn't answer.
    [[nodiscard]] virtual std::optional<std::string> text() const = 0;
    /// Replaces the content by a plain text.
    virtual void setText(const std::string& text) = 0;
};

} // namespace brinmoor

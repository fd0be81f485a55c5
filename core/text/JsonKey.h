#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brinmoor::text {

/// A key of plain ASCII letters and digits as it stands in the product's files. Made once, as a
/// constant: it is copied and compared whole, whatever of it counts.
class JsonKey {
public:
    static constexpr std::size_t room = 32;

    template <std::size_t size>
    constexpr explicit JsonKey(const char (&name)[size]) noexcept : length_(size + 4) {
        static_assert(size + 4 <= room);
        std::size_t at = 0;
        text_[at++] = '"';
        for (std::size_t from = 0; from + 1 < size; ++from)
            text_[at++] = name[from];
        for (const char next : {'"', ' ', ':', ' '})
            text_[at++] = next;
    }

    /// With its quotes and what stands before the value; zeros behind them.
    [[nodiscard]] const char* text() const noexcept { return text_.data(); }
    [[nodiscard]] std::size_t length() const noexcept { return length_; }
    [[nodiscard]] std::string_view quoted() const noexcept { return {text(), length_ - 3}; }

private:
    std::array<char, room> text_{};
    std::size_t length_;
};

} // namespace brinmoor::text

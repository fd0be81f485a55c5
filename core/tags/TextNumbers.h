#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brinmoor::LinkAutoTagging {

/// Gives each different text a number, from 0, in the order of first appearance. A flat table:
/// tag suggestion asks it for every address, tag and word of a library.
class TextNumbers {
public:
    enum class Storage {
        borrowed, ///< the text outlives the table
        copied,
    };

    /// The number of `text`, and whether it is new.
    std::pair<std::uint32_t, bool> add(std::string_view text, Storage storage);

    void reserve(std::size_t count);
    [[nodiscard]] std::size_t size() const noexcept { return texts_.size(); }
    [[nodiscard]] std::string_view text(std::uint32_t number) const { return texts_[number]; }

private:
    struct Slot {
        std::uint32_t numberAndOne = 0; ///< 0: free
        std::uint32_t hash = 0;
    };

    [[nodiscard]] std::size_t firstSlot(std::uint32_t hash) const noexcept;
    void grow(std::size_t slotCount);

    std::vector<Slot> slots_; ///< a power of two of them, at most half of them taken
    std::vector<std::string_view> texts_;
    std::deque<std::string> copies_;
};

} // namespace brinmoor::LinkAutoTagging

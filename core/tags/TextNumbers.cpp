#include "core/tags/TextNumbers.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace brinmoor::LinkAutoTagging {
namespace {

constexpr std::size_t fewestSlots = 64;

constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;

template <class Word>
std::uint64_t wordAt(const char* from) noexcept {
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

/// The text's last bytes, up to 8.
std::uint64_t lastWord(const char* from, std::size_t size) noexcept {
    if (size >= 8)
        return wordAt<std::uint64_t>(from + size - 8);
    if (size >= 4)
        return wordAt<std::uint32_t>(from) << 32 | wordAt<std::uint32_t>(from + size - 4);
    std::uint64_t word = 0;
    for (std::size_t at = 0; at < size; ++at)
        word = word << 8 | static_cast<unsigned char>(from[at]);
    return word;
}

constexpr std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) noexcept {
    hash = (hash ^ word) * multiplier;
    return hash ^ (hash >> 32);
}

std::uint32_t hashOf(std::string_view text) noexcept {
    std::uint64_t hash = text.size();
    const char* from = text.data();
    std::size_t left = text.size();
    for (; left > 8; from += 8, left -= 8)
        hash = mixed(hash, wordAt<std::uint64_t>(from));
    hash = mixed(hash, lastWord(from, left));
    return static_cast<std::uint32_t>(hash * multiplier >> 32);
}

} // namespace

std::pair<std::uint32_t, bool> TextNumbers::add(std::string_view text, Storage storage) {
    if (2 * texts_.size() >= slots_.size())
        grow(std::max(2 * slots_.size(), fewestSlots));
    const std::uint32_t hash = hashOf(text);
    std::size_t at = firstSlot(hash);
    for (; slots_[at].numberAndOne != 0; at = (at + 1) & (slots_.size() - 1)) {
        const std::uint32_t number = slots_[at].numberAndOne - 1;
        if (slots_[at].hash == hash && texts_[number] == text)
            return {number, false};
    }
    const auto number = static_cast<std::uint32_t>(texts_.size());
    slots_[at] = {number + 1, hash};
    texts_.push_back(storage == Storage::borrowed ? text
                                                  : std::string_view(copies_.emplace_back(text)));
    return {number, true};
}

void TextNumbers::reserve(std::size_t count) {
    texts_.reserve(count);
    grow(std::bit_ceil(std::max(2 * count + 2, fewestSlots)));
}

std::size_t TextNumbers::firstSlot(std::uint32_t hash) const noexcept {
    return hash & (slots_.size() - 1);
}

void TextNumbers::grow(std::size_t slotCount) {
    std::vector<Slot> old(slotCount);
    old.swap(slots_);
    for (const Slot& slot : old) {
        if (slot.numberAndOne == 0)
            continue;
        std::size_t at = firstSlot(slot.hash);
        while (slots_[at].numberAndOne != 0)
            at = (at + 1) & (slots_.size() - 1);
        slots_[at] = slot;
    }
}

} // namespace brinmoor::LinkAutoTagging

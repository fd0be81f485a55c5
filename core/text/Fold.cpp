#include "core/text/Fold.h"

#include "core/text/FoldBytes.h"

#include <algorithm>
#include <array>

namespace brinmoor::text {

namespace {

constexpr std::size_t pieceSize = 512;

std::string& storedLocale() {
    static std::string locale;
    return locale;
}

FoldRule storedRule = FoldRule::standard;

constexpr bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

} // namespace

FoldRule foldRule(std::string_view locale) noexcept {
    if (locale.size() < 2 || (locale.size() > 2 && isLetter(locale[2])))
        return FoldRule::standard;
    const auto language = locale.substr(0, 2);
    return language == "tr" || language == "az" ? FoldRule::turkic : FoldRule::standard;
}

void setUserLocale(std::string_view locale) {
    storedLocale() = locale;
    storedRule = foldRule(locale);
}

const std::string& userLocale() noexcept {
    return storedLocale();
}

void appendFolded(std::string& target, std::string_view text, FoldRule rule) {
    std::array<char, fold::foldedRoom(pieceSize)> room;
    const char* from = text.data();
    const char* const end = from + text.size();
    while (from != end) {
        const auto left = static_cast<std::size_t>(end - from);
        const fold::Piece piece{from + std::min(left, pieceSize), text.data(), end};
        const auto done = fold::foldPiece({from, room.data()}, piece, rule);
        target.append(room.data(), static_cast<std::size_t>(done.to - room.data()));
        from = done.from;
    }
}

void appendFolded(std::string& target, std::string_view text) {
    appendFolded(target, text, storedRule);
}

std::string_view FoldRoom::folded(std::string_view text, FoldRule rule) {
    const std::size_t needed = fold::foldedRoom(text.size());
    if (size_ < needed) {
        size_ = std::max(needed, 2 * size_);
        bytes_ = std::make_unique_for_overwrite<char[]>(size_);
    }
    const char* const end = text.data() + text.size();
    const auto done = fold::foldPiece({text.data(), bytes_.get()}, {end, text.data(), end}, rule);
    return {bytes_.get(), static_cast<std::size_t>(done.to - bytes_.get())};
}

std::string_view FoldRoom::folded(std::string_view text) {
    return folded(text, storedRule);
}

std::string folded(std::string_view text, FoldRule rule) {
    std::string result;
    if (text.size() > pieceSize)
        result.reserve(text.size());
    appendFolded(result, text, rule);
    return result;
}

std::string folded(std::string_view text) {
    return folded(text, storedRule);
}

} // namespace brinmoor::text

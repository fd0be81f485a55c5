#pragma once

#include "core/text/Fold.h"

#include <cstddef>

namespace brinmoor::text::fold {

/// The room for the folded form of a piece of `size` bytes: whole blocks are written.
[[nodiscard]] constexpr std::size_t foldedRoom(std::size_t size) noexcept {
    return 3 * (size + 16) + 16;
}

/// A place in a text and in the room for its folded form.
struct Cursor {
    const char* from;
    char* to;
};

/// Where the part of a text that is folded at once ends, and where the whole text lies.
struct Piece {
    const char* end;
    const char* textBegin;
    const char* textEnd;
};

/// Folds whole code points from `cursor.from` until the piece's end is reached or passed.
[[nodiscard]] Cursor foldPiece(Cursor cursor, const Piece& piece, FoldRule rule) noexcept;

} // namespace brinmoor::text::fold

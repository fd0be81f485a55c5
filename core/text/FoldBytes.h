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

/// Folds whole code points from `cursor.from` until `pieceEnd` is reached or passed. `textEnd` is
/// where the text really ends.
[[nodiscard]] Cursor foldPiece(Cursor cursor, const char* pieceEnd, const char* textEnd,
                               FoldRule rule) noexcept;

} // namespace brinmoor::text::fold

#pragma once

#include <QByteArray>

#include <optional>

namespace brinmoor::decoder {

/// Loads every reader of pictures that is installed and starts what scales them: later this process
/// can open no file.
void prepare();

/// The first frame as PNG, upright, its longer side at most `longestSide` pixels.
[[nodiscard]] std::optional<QByteArray> iconOf(QByteArray picture, int longestSide);

} // namespace brinmoor::decoder

#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <vector>

namespace brinmoor::testing {

[[nodiscard]] QByteArray pictureOf(QSize size, QColor colour, const char* format = "PNG");
/// An .ico file with these pictures, in their order.
[[nodiscard]] QByteArray icoOf(const std::vector<QByteArray>& pngs, const std::vector<int>& sides);
/// A PNG that claims to be of this size and holds next to nothing.
[[nodiscard]] QByteArray pngThatClaims(quint32 width, quint32 height);
[[nodiscard]] QImage imageOf(const QByteArray& png);

} // namespace brinmoor::testing

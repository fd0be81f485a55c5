#pragma once

#include <QByteArray>
#include <QFuture>

#include <optional>

namespace brinmoor {

/// Makes an icon of the bytes of any picture. Main thread.
class IconPictures {
public:
    /// No side of an icon is longer, in pixels.
    static constexpr int longestSide = 84;

    virtual ~IconPictures() = default;

    /// The first frame as PNG, upright and at most `longestSide` long; absent when the bytes are no
    /// picture that can be read. Never fails otherwise.
    [[nodiscard]] virtual QFuture<std::optional<QByteArray>> icon(QByteArray picture) = 0;
};

} // namespace brinmoor

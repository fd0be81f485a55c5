#pragma once

#include "icons/IconPictures.h"

#include <QString>

#include <chrono>

namespace brinmoor {

/// Reads pictures in a program of their own, one run each: pictures come from the network, and
/// whatever one of them does to its reader happens in a small process that may do nothing but read
/// and answer. One that dies, hangs or floods gave no picture.
class DecodedPictures final : public IconPictures {
public:
    /// `program` is brinmoor-icon-decoder.
    explicit DecodedPictures(QString program,
                             std::chrono::milliseconds limit = std::chrono::seconds(5));

    [[nodiscard]] QFuture<std::optional<QByteArray>> icon(QByteArray picture) override;

private:
    QString program_;
    std::chrono::milliseconds limit_;
};

} // namespace brinmoor

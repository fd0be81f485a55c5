#include "core/capture/CaptureNotice.h"

namespace brinmoor {

std::chrono::seconds CaptureNotice::duration() const noexcept {
    if (clipboardURL)
        return std::chrono::seconds(12);
    return std::chrono::seconds(isError ? 8 : 3);
}

} // namespace brinmoor

#pragma once

#include "core/capture/CaptureNotice.h"

#include <string>

namespace brinmoor {

/// Why a browser could not be read, with its words. Both wordings stand on their own.
struct CaptureError {
    enum class Cause {
        unsupported, ///< the front application can't be scripted; `text` is its display name
        permission,  ///< access to the browser was refused; `text` is the browser's display name
        failed,      ///< a script failed for another reason; `text` is a sentence of detail
        noBrowser,   ///< no browser could be chosen
        noTabs,      ///< nothing that was read can be saved
    };
    Cause cause = Cause::failed;
    std::string text;

    /// The passing message; `id` is a new identifier.
    [[nodiscard]] CaptureNotice notice(Uuid id) const;
    /// A sentence or more, for places that show a plain message.
    [[nodiscard]] std::string errorDescription() const;

    friend bool operator==(const CaptureError&, const CaptureError&) = default;
};

} // namespace brinmoor

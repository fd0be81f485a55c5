#pragma once

#include "core/capture/CaptureAction.h"
#include "core/library/Library.h"
#include "core/library/SavedLink.h"
#include "core/tabs/CapturedTabTarget.h"

#include <optional>
#include <vector>

namespace brinmoor {

/// A link being annotated before it is saved. Its identity for the panel is the link's `id`.
struct CaptureDraft {
    SavedLink link;
    CaptureAction action = CaptureAction::note;   ///< what started it
    std::optional<CapturedTabTarget> closeTarget; ///< the tab to close after saving

    friend bool operator==(const CaptureDraft&, const CaptureDraft&) = default;
};

/// A window's tabs waiting to be chosen from.
struct TabSelectionDraft {
    Uuid id;
    std::vector<SavedLink> links; ///< in browser order
    UuidSet selected;             ///< at creation all of them

    friend bool operator==(const TabSelectionDraft&, const TabSelectionDraft&) = default;
};

} // namespace brinmoor

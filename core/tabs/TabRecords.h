#pragma once

#include "core/tabs/CapturedTabTarget.h"
#include "core/text/SmallJson.h"

#include <optional>

namespace brinmoor {

/// The target in a JSON object; absent when a required key is missing or of another type. For the
/// sources of this layer only.
[[nodiscard]] std::optional<CapturedTabTarget> capturedTabTarget(const text::JsonObject& object);

} // namespace brinmoor

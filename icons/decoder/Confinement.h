#pragma once

namespace brinmoor::decoder {

/// Takes away from this process what reading one picture doesn't need: memory, time, further files,
/// further threads and children. What is open stays open. False when the system refused.
[[nodiscard]] bool confine() noexcept;

} // namespace brinmoor::decoder

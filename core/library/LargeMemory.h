#pragma once

#include <cstddef>

namespace brinmoor {

/// Tells the system that all of this memory will soon be used, so that it may be given in large
/// pages: getting it in small ones takes a good part of the time of reading a large file. A hint.
void expectFullUse(const void* memory, std::size_t size) noexcept;

} // namespace brinmoor

#include "core/library/LargeMemory.h"

#include <cstdint>

#include <sys/mman.h>

namespace brinmoor {

void expectFullUse(const void* memory, std::size_t size) noexcept {
#if defined(MADV_HUGEPAGE)
    constexpr std::uintptr_t page = 4096;
    constexpr std::size_t worthwhile = std::size_t{4} << 20;
    const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) & ~(page - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + size) & ~(page - 1);
    if (size >= worthwhile)
        (void)::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
    (void)memory, (void)size;
#endif
}

} // namespace brinmoor

#pragma once

#include <cstdio>
#include <cstdlib>

namespace brinmoor::fuzz {

/// Ends the run with the broken promise's name, so that the fuzzer keeps the input.
inline void promise(bool isKept, const char* name) {
    if (isKept)
        return;
    std::fprintf(stderr, "broken: %s\n", name);
    std::abort();
}

} // namespace brinmoor::fuzz

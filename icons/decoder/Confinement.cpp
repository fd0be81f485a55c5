#include "icons/decoder/Confinement.h"

#include <sys/prctl.h>
#include <sys/resource.h>

namespace brinmoor::decoder {
namespace {

constexpr rlim_t mostMemory = rlim_t{512} << 20;
constexpr rlim_t mostSeconds = 3;

template <class Resource>
bool limit(Resource resource, rlim_t most) noexcept {
    const rlimit limits{most, most};
    return ::setrlimit(resource, &limits) == 0;
}

bool limitMemory() noexcept {
#ifdef __SANITIZE_ADDRESS__
    return true; // The sanitizer itself maps far more than any limit, at any time.
#else
    return limit(RLIMIT_AS, mostMemory);
#endif
}

} // namespace

bool confine() noexcept {
    return limitMemory() && limit(RLIMIT_CPU, mostSeconds) && limit(RLIMIT_CORE, 0) &&
           limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_NOFILE, 0) && limit(RLIMIT_NPROC, 0) &&
           ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0;
}

} // namespace brinmoor::decoder

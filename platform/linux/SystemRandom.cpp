#include "platform/linux/SystemRandom.h"

#include <cerrno>
#include <sys/random.h>

namespace brinmoor {

bool SystemRandom::fill(std::span<std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto count = ::getrandom(bytes.data(), bytes.size(), 0);
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace brinmoor

#pragma once

#include "core/Result.h"

#include <optional>
#include <string>
#include <string_view>

namespace brinmoor {

enum class SecureStoreFailure {
    unavailable, ///< nothing on this desktop keeps secrets
    locked,      ///< the user's secrets are locked and stayed so
    failed,      ///< the store reported anything else
};

/// Small secrets, encrypted at rest and readable by this user alone, each under a service and an
/// account. "Not found" is a result, never a failure. Main thread; a call blocks until the store
/// answers, usually for a few milliseconds.
///
/// A locked store is never unlocked for a read, which happens without the user's doing: that is
/// `locked` when the item is there. A write comes from something the user did, so it asks the user
/// to unlock and waits for that.
class SecureStore {
public:
    virtual ~SecureStore() = default;

    /// Absent when there is no such item.
    [[nodiscard]] virtual Result<std::optional<std::string>, SecureStoreFailure>
    read(std::string_view service, std::string_view account) = 0;
    /// Makes the item or replaces its content.
    [[nodiscard]] virtual Result<Done, SecureStoreFailure>
    write(std::string_view service, std::string_view account, std::string_view bytes) = 0;
    /// An item that is not there counts as removed.
    [[nodiscard]] virtual Result<Done, SecureStoreFailure> remove(std::string_view service,
                                                                  std::string_view account) = 0;
};

} // namespace brinmoor

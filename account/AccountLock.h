#pragma once

#include "core/Result.h"
#include "core/account/AccountFailure.h"

#include <string>
#include <utility>

namespace brinmoor {

/// The one lock under which copies of the program take turns at the login. Held until it goes.
class AccountLock {
public:
    /// Takes the lock on "account.lock" in `folder`, which is made with its parents when missing.
    /// Never waits: `accountBusy` when another holder has it, `keychain` when the file can't be
    /// opened or is a symbolic link, `system` when the folder can't be made.
    [[nodiscard]] static Result<AccountLock, AccountFailure> take(const std::string& folder);

    AccountLock(AccountLock&& other) noexcept : file_(std::exchange(other.file_, -1)) {}
    AccountLock& operator=(AccountLock&& other) noexcept {
        std::swap(file_, other.file_);
        return *this;
    }
    ~AccountLock();

private:
    explicit AccountLock(int file) : file_(file) {}
    int file_ = -1;
};

} // namespace brinmoor

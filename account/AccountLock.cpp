#include "account/AccountLock.h"

#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace brinmoor {
namespace {

using Cause = AccountFailure::Cause;

/// The error of making it; none when it is there.
std::error_code makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (folder.has_parent_path())
        std::filesystem::create_directories(folder.parent_path(), error);
    if (error)
        return error;
    if (::mkdir(folder.c_str(), S_IRWXU) == 0)
        return {};
    const int reason = errno;
    if (std::filesystem::is_directory(folder, error))
        return {};
    return {reason, std::generic_category()};
}

int openLockFile(const std::string& path) {
    constexpr int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
    return ::open(path.c_str(), flags, S_IRUSR | S_IWUSR);
}

} // namespace

Result<AccountLock, AccountFailure> AccountLock::take(const std::string& folder) {
    if (const auto error = makeFolder(folder))
        return failure(AccountFailure{Cause::system, error.message()});
    const int file = openLockFile(folder + "/account.lock");
    if (file < 0)
        return failure(AccountFailure{Cause::keychain});
    AccountLock lock(file);
    if (::flock(file, LOCK_EX | LOCK_NB) != 0)
        return failure(AccountFailure{Cause::accountBusy});
    return lock;
}

AccountLock::~AccountLock() {
    if (file_ < 0)
        return;
    ::flock(file_, LOCK_UN);
    ::close(file_);
}

} // namespace brinmoor

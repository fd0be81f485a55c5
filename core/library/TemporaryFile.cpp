#include "core/library/TemporaryFile.h"

#include <atomic>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace brinmoor {

namespace {

constexpr mode_t onlyForTheUser = 0600;
// The disk starts to work while the rest is still being put together.
constexpr std::uint64_t writeBackEvery = std::uint64_t{4} << 20;
// Names of files that a killed process left behind may be met.
constexpr int mostNames = 1000;

std::string nextName(const std::string& folder) {
    static std::atomic<unsigned> counter = 0;
    return folder + "/.brinmoor-" + std::to_string(::getpid()) + '-' + std::to_string(++counter) +
           ".tmp";
}

} // namespace

TemporaryFile::TemporaryFile(FileSystem& system, std::string folder, Naming naming)
    : system_(system), folder_(std::move(folder)) {
#if defined(O_TMPFILE)
    if (naming == Naming::whenComplete)
        file_.emplace(system_, system_.open(folder_, O_TMPFILE | O_WRONLY, onlyForTheUser));
#else
    (void)naming;
#endif
    if (!isOpen() && !openNamed())
        fail();
}

TemporaryFile::~TemporaryFile() {
    if (!name_.empty())
        system_.remove(name_);
}

bool TemporaryFile::fail() {
    error_ = errno;
    return false;
}

template <class Attempt>
bool TemporaryFile::tryNames(const Attempt& attempt) {
    for (int tried = 0; tried < mostNames; ++tried) {
        std::string name = nextName(folder_);
        if (attempt(name)) {
            name_ = std::move(name);
            return true;
        }
        if (errno != EEXIST)
            return false;
    }
    return false;
}

bool TemporaryFile::openNamed() {
    return tryNames([this](const std::string& name) {
        file_.emplace(system_, system_.open(name, O_WRONLY | O_CREAT | O_EXCL, onlyForTheUser));
        return file_->isOpen();
    });
}

bool TemporaryFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = system_.write(file_->descriptor(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written == 0)
            errno = EIO; // a device that takes nothing and names no reason
        if (written <= 0)
            return fail();
        bytes.remove_prefix(static_cast<std::size_t>(written));
        size_ += static_cast<std::uint64_t>(written);
    }
    if (size_ - sentBack_ >= writeBackEvery) {
        system_.startWriteBack(file_->descriptor(), static_cast<off_t>(sentBack_),
                               static_cast<off_t>(size_ - sentBack_));
        sentBack_ = size_;
    }
    return true;
}

bool TemporaryFile::takeName() {
    if (!name_.empty())
        return true;
    isNameRefused_ = !tryNames(
        [this](const std::string& name) { return system_.link(file_->descriptor(), name) == 0; });
    return !isNameRefused_;
}

bool TemporaryFile::complete() {
    int flushed = system_.flush(file_->descriptor());
    while (flushed != 0 && errno == EINTR)
        flushed = system_.flush(file_->descriptor());
    if (flushed != 0 || !takeName())
        return fail();
    return file_->close() == 0 || errno == EINTR || fail();
}

bool TemporaryFile::moveTo(const std::string& target) {
    if (system_.rename(name_, target) != 0)
        return fail();
    name_.clear();
    return true;
}

} // namespace brinmoor

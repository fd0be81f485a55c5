#include "core/library/FileReplacement.h"

#include "core/library/TemporaryFile.h"

#include <cerrno>
#include <vector>

#include <fcntl.h>

namespace brinmoor {

namespace {

using Naming = TemporaryFile::Naming;

constexpr mode_t folderOnlyForTheUser = 0700;
constexpr int mostLinks = 40; ///< the kernel's own limit
constexpr std::size_t copiedAtOnce = std::size_t{256} << 10;

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool makeFolders(FileSystem& system, const std::string& folder) {
    if (system.makeFolder(folder, folderOnlyForTheUser) == 0 || errno == EEXIST)
        return true;
    if (errno != ENOENT || folderOf(folder) == folder)
        return false;
    return makeFolders(system, folderOf(folder)) &&
           (system.makeFolder(folder, folderOnlyForTheUser) == 0 || errno == EEXIST);
}

/// The file that is meant by `path`, behind symbolic links; false with errno for a circle.
bool followLinks(FileSystem& system, std::string& path) {
    std::string target;
    for (int followed = 0; followed < mostLinks; ++followed) {
        if (system.readLink(path, target) != 0)
            return true;
        path = target.starts_with('/') ? target : folderOf(path).append("/").append(target);
    }
    errno = ELOOP;
    return false;
}

/// Some file systems can't flush a folder and need not: they say that the call makes no sense.
bool flushFolder(FileSystem& system, int folder) {
    return system.flush(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
}

class Replacement {
public:
    Replacement(FileSystem& system, std::string target, const FileContent& content,
                std::uint64_t largest)
        : system_(system), target_(std::move(target)), folder_(folderOf(target_)),
          content_(content), largest_(largest) {}

    int run() {
        // Both are opened before anything changes, so that what is needed afterwards is at hand.
        OpenFile folder(system_, system_.open(folder_, O_RDONLY | O_DIRECTORY, 0));
        if (!folder.isOpen())
            return errno;
        const OpenFile old(system_, system_.open(target_, O_RDONLY | O_NONBLOCK, 0));
        const bool isFirst = !old.isOpen() && errno == ENOENT;
        if (const int error = putInPlace(); error != 0)
            return error;
        if (flushFolder(system_, folder.descriptor()))
            return 0;
        const int error = errno;
        restore(old, isFirst);
        return error;
    }

private:
    int putInPlace() {
        bool isNameRefused = false;
        const int error = putInPlace(Naming::whenComplete, isNameRefused);
        return isNameRefused ? putInPlace(Naming::atOnce, isNameRefused) : error;
    }

    int putInPlace(Naming naming, bool& isNameRefused) {
        TemporaryFile file(system_, folder_, naming);
        const bool isReplaced =
            file.isOpen() && fill(file) && file.complete() && file.moveTo(target_);
        isNameRefused = file.isNameRefused();
        if (isReplaced)
            return 0;
        return file.error() != 0 ? file.error() : EFBIG;
    }

    bool fill(TemporaryFile& file) const {
        return content_([&](std::string_view piece) {
            return file.size() + piece.size() <= largest_ && file.write(piece);
        });
    }

    /// The new file stands there but may not survive a loss of power: the caller will be told that
    /// nothing was saved, so the old content is put back as far as the disk still lets us.
    void restore(const OpenFile& old, bool isFirst) {
        if (isFirst)
            system_.remove(target_);
        if (!old.isOpen())
            return;
        TemporaryFile file(system_, folder_, Naming::atOnce);
        if (file.isOpen() && copy(old, file) && file.complete())
            (void)file.moveTo(target_);
    }

    bool copy(const OpenFile& from, TemporaryFile& to) {
        std::vector<char> buffer(copiedAtOnce);
        for (;;) {
            const ssize_t size = system_.read(from.descriptor(), buffer.data(), buffer.size());
            if (size < 0 && errno == EINTR)
                continue;
            if (size <= 0)
                return size == 0;
            if (!to.write({buffer.data(), static_cast<std::size_t>(size)}))
                return false;
        }
    }

    FileSystem& system_;
    std::string target_;
    std::string folder_;
    const FileContent& content_;
    std::uint64_t largest_;
};

} // namespace

int replaceFile(FileSystem& system, const std::string& path, const FileContent& content,
                std::uint64_t largest) {
    std::string target = path;
    if (!makeFolders(system, folderOf(path)) || !followLinks(system, target) ||
        (target != path && !makeFolders(system, folderOf(target))))
        return errno;
    return Replacement(system, std::move(target), content, largest).run();
}

} // namespace brinmoor

#include "bridge/frames/HostSocket.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <memory>

namespace brinmoor::bridge {
namespace {

constexpr std::size_t profileLength = 16;
constexpr int waitingConnections = 32;
constexpr std::string_view unpublishedPrefix = ".new-";

/// A socket's address holds about a hundred bytes, so the folder is named by its descriptor.
std::optional<sockaddr_un> addressOf(int folder, std::string_view name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder) + "/" + std::string(name);
    if (path.size() >= sizeof address.sun_path)
        return std::nullopt;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

FileDescriptor newSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

std::optional<std::int32_t> processNumber(std::string_view digits) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = error == std::errc{} && end == digits.data() + digits.size();
    return whole && number > 0 ? std::optional(number) : std::nullopt;
}

bool isGone(std::int32_t process) {
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

std::vector<std::string> namesIn(int folder) {
    std::vector<std::string> names;
    const int copy = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(copy < 0 ? nullptr : ::fdopendir(copy),
                                                      ::closedir);
    if (!entries)
        return names;
    while (const dirent* entry = ::readdir(entries.get()))
        names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end());
    return names;
}

std::uint64_t inodeOf(int folder, const std::string& name) {
    struct stat status {};
    return ::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 ? status.st_ino : 0;
}

bool isStale(int folder, std::string_view name) {
    if (name.starts_with(unpublishedPrefix)) {
        const auto maker = processNumber(name.substr(unpublishedPrefix.size()));
        return maker && isGone(*maker);
    }
    const auto host = hostOfSocket(name);
    return host && isGone(host->process) && !connectedTo(folder, *host);
}

} // namespace

Result<FileDescriptor, FolderFailure> openBridgeFolder(const char* runtimeFolder,
                                                       MissingFolder whenMissing, uid_t user) {
    if (runtimeFolder == nullptr || *runtimeFolder != '/')
        return failure(FolderFailure::noRuntimeFolder);
    const std::string path = std::string(runtimeFolder) + "/brinmoor";
    if (whenMissing == MissingFolder::make && ::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
        return failure(FolderFailure::refused);
    FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder && errno == ENOENT)
        return failure(FolderFailure::missing);
    if (!folder && (errno == ELOOP || errno == ENOTDIR))
        return failure(FolderFailure::notOurs);
    if (!folder)
        return failure(FolderFailure::refused);
    struct stat status {};
    if (::fstat(folder.number(), &status) != 0 || status.st_uid != user)
        return failure(FolderFailure::notOurs);
    if ((status.st_mode & 0777) != 0700 && ::fchmod(folder.number(), 0700) != 0)
        return failure(FolderFailure::refused);
    return folder;
}

bool isProfileIdentifier(std::string_view text) {
    return text.size() == profileLength &&
           text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

std::string socketName(const HostName& host) {
    return host.browserID + "-" + std::to_string(host.process) + "-" + host.profile;
}

std::optional<HostName> hostOfSocket(std::string_view name) {
    const auto beforeProfile = name.rfind('-');
    if (beforeProfile == std::string_view::npos || beforeProfile == 0)
        return std::nullopt;
    const auto beforeProcess = name.rfind('-', beforeProfile - 1);
    if (beforeProcess == std::string_view::npos || beforeProcess == 0)
        return std::nullopt;
    const auto profile = name.substr(beforeProfile + 1);
    const auto process =
        processNumber(name.substr(beforeProcess + 1, beforeProfile - beforeProcess - 1));
    if (!process || !isProfileIdentifier(profile))
        return std::nullopt;
    return HostName{std::string(name.substr(0, beforeProcess)), *process, std::string(profile)};
}

std::vector<HostName> hostsIn(int folder) {
    std::vector<HostName> hosts;
    for (const std::string& name : namesIn(folder))
        if (auto host = hostOfSocket(name))
            hosts.push_back(std::move(*host));
    return hosts;
}

bool isPeerOf(uid_t user, int connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == user;
}

FileDescriptor connectedTo(int folder, const HostName& host, uid_t user) {
    const auto address = addressOf(folder, socketName(host));
    FileDescriptor connection = newSocket();
    if (!address || !connection)
        return {};
    // A local connection is made at once or not at all; a full queue answers EAGAIN.
    if (::connect(connection.number(), generic(*address), sizeof *address) != 0)
        return {};
    return isPeerOf(user, connection.number()) ? std::move(connection) : FileDescriptor();
}

std::optional<ListeningSocket> ListeningSocket::publish(int folder, const HostName& host) {
    const std::string unpublished = std::string(unpublishedPrefix) + std::to_string(::getpid());
    const std::string name = socketName(host);
    const auto address = addressOf(folder, unpublished);
    ListeningSocket made;
    made.listener_ = newSocket();
    made.folder_ = FileDescriptor(::fcntl(folder, F_DUPFD_CLOEXEC, 3));
    if (!address || !made.listener_ || !made.folder_)
        return std::nullopt;
    ::unlinkat(folder, unpublished.c_str(), 0);
    if (::bind(made.number(), generic(*address), sizeof *address) != 0 ||
        ::listen(made.number(), waitingConnections) != 0 ||
        ::renameat(folder, unpublished.c_str(), folder, name.c_str()) != 0) {
        ::unlinkat(folder, unpublished.c_str(), 0);
        return std::nullopt;
    }
    made.name_ = name;
    made.inode_ = inodeOf(folder, name);
    return made;
}

ListeningSocket::~ListeningSocket() {
    if (folder_ && !name_.empty() && inodeOf(folder_.number(), name_) == inode_)
        ::unlinkat(folder_.number(), name_.c_str(), 0);
}

FileDescriptor ListeningSocket::accepted(uid_t user) const {
    for (;;) {
        FileDescriptor connection(
            ::accept4(number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!connection || isPeerOf(user, connection.number()))
            return connection;
    }
}

void removeStaleSockets(int folder) {
    for (const std::string& name : namesIn(folder))
        if (isStale(folder, name))
            ::unlinkat(folder, name.c_str(), 0);
}

} // namespace brinmoor::bridge

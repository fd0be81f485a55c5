#pragma once

#include "bridge/frames/FileDescriptor.h"
#include "core/Result.h"

#include <unistd.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The folder in which the browsers' helper programs listen, and their sockets. Any thread.
namespace brinmoor::bridge {

enum class FolderFailure {
    noRuntimeFolder, ///< the desktop session names none
    missing,
    notOurs, ///< a link, no folder, or another user's
    refused, ///< the operating system refused
};

enum class MissingFolder { make, leave };

/// `brinmoor` inside the runtime folder, which the session's XDG_RUNTIME_DIR gives. The folder is
/// closed to everybody else: its rights are set to 0700 when they are wider. It has to belong to
/// `user`.
[[nodiscard]] Result<FileDescriptor, FolderFailure>
openBridgeFolder(const char* runtimeFolder, MissingFolder whenMissing, uid_t user = ::geteuid());

/// Whose windows a socket leads to; also its file's name.
struct HostName {
    std::string browserID;
    std::int32_t process = 0; ///< the browser's main process
    std::string profile;      ///< sixteen hexadecimal digits

    friend bool operator==(const HostName&, const HostName&) = default;
};

[[nodiscard]] bool isProfileIdentifier(std::string_view text);
[[nodiscard]] std::string socketName(const HostName& host);
[[nodiscard]] std::optional<HostName> hostOfSocket(std::string_view socketName);

/// The hosts that have a socket in the folder, dead ones among them, sorted by name.
[[nodiscard]] std::vector<HostName> hostsIn(int folder);

/// A non-blocking connection to a live host of the user; none when nobody listens.
[[nodiscard]] FileDescriptor connectedTo(int folder, const HostName& host,
                                         uid_t user = ::geteuid());

/// True when the process at the other end belongs to the user.
[[nodiscard]] bool isPeerOf(uid_t user, int connection);

/// A listening socket in the folder, removed at the end unless another host took its name over.
class ListeningSocket {
public:
    ListeningSocket() = default;
    ListeningSocket(ListeningSocket&&) noexcept = default;
    ListeningSocket& operator=(ListeningSocket&&) noexcept = default;
    ~ListeningSocket();

    /// Appears under the host's name only once it takes connections, so that a socket that refuses
    /// one is always a dead host's. Replaces a socket of the same name.
    [[nodiscard]] static std::optional<ListeningSocket> publish(int folder, const HostName& host);

    [[nodiscard]] int number() const noexcept { return listener_.number(); }
    /// A new non-blocking connection of the user; none when there is none to take. Those of others
    /// are closed.
    [[nodiscard]] FileDescriptor accepted(uid_t user = ::geteuid()) const;

private:
    FileDescriptor folder_;
    FileDescriptor listener_;
    std::string name_;
    std::uint64_t inode_ = 0;
};

/// Removes the sockets of hosts that died without removing them and whose browser is gone too.
void removeStaleSockets(int folder);

} // namespace brinmoor::bridge

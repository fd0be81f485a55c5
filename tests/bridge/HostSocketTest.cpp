#include "bridge/frames/HostSocket.h"
#include "tests/support/ScratchFolder.h"

#include <sys/socket.h>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace brinmoor::bridge {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

constexpr std::int32_t goneProcess = 0x3ffffff0; // above what the kernel hands out

HostName host(std::int32_t process = ::getpid()) {
    return {"org.chromium.Chromium", process, "0123456789abcdef"};
}

class BridgeFolder : public ::testing::Test {
protected:
    [[nodiscard]] Result<FileDescriptor, FolderFailure> open(MissingFolder whenMissing) const {
        return openBridgeFolder(runtime.path().c_str(), whenMissing);
    }
    [[nodiscard]] FileDescriptor made() const {
        auto folder = open(MissingFolder::make);
        EXPECT_TRUE(folder.ok());
        return std::move(folder).value();
    }
    [[nodiscard]] mode_t rights() const {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 0777;
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(path))
            all.push_back(entry.path().filename());
        return all;
    }

    testing::ScratchFolder runtime;
    std::string path = runtime.path("brinmoor");
};

TEST_F(BridgeFolder, isMadeForItsOwnerAlone) {
    EXPECT_EQ(open(MissingFolder::leave).error(), FolderFailure::missing);
    EXPECT_TRUE(open(MissingFolder::make).ok());
    EXPECT_EQ(rights(), 0700U);
}

TEST_F(BridgeFolder, losesRightsThatOthersHaveToIt) {
    fs::create_directory(path);
    ::chmod(path.c_str(), 0777);
    EXPECT_TRUE(open(MissingFolder::leave).ok());
    EXPECT_EQ(rights(), 0700U);
}

TEST_F(BridgeFolder, isRefusedWhenItIsALinkOrNoFolder) {
    fs::create_directory(runtime.path("elsewhere"));
    fs::create_directory_symlink("elsewhere", path);
    EXPECT_EQ(open(MissingFolder::make).error(), FolderFailure::notOurs);
    fs::remove(path);
    std::ofstream(path) << "file";
    EXPECT_EQ(open(MissingFolder::make).error(), FolderFailure::notOurs);
}

TEST_F(BridgeFolder, isRefusedWhenItBelongsToSomebodyElse) {
    fs::create_directory(path);
    const uid_t somebodyElse = ::geteuid() + 1;
    EXPECT_EQ(openBridgeFolder(runtime.path().c_str(), MissingFolder::make, somebodyElse).error(),
              FolderFailure::notOurs);
}

TEST_F(BridgeFolder, needsARuntimeFolderWithAnAbsolutePath) {
    for (const char* folder : {static_cast<const char*>(nullptr), "", "relative"})
        EXPECT_EQ(openBridgeFolder(folder, MissingFolder::make).error(),
                  FolderFailure::noRuntimeFolder);
}

TEST(SocketName, givesItsHostBack) {
    for (const std::string id : {"org.chromium.Chromium", "com.google.Chrome.beta", "a-b-12-c"}) {
        const HostName named{id, 4711, "00ff00ff00ff00ff"};
        EXPECT_EQ(hostOfSocket(socketName(named)), named);
    }
}

TEST(SocketName, isNothingElse) {
    for (const char* name : {"", "-", "--", "a-1-", "a-1-0123456789ABCDEF", "a-1-0123456789abcde",
                             "a--0123456789abcdef", "a-0-0123456789abcdef", "-1-0123456789abcdef",
                             "a-x-0123456789abcdef", "a-99999999999-0123456789abcdef", ".new-12"})
        EXPECT_EQ(hostOfSocket(name), std::nullopt) << name;
}

TEST_F(BridgeFolder, holdsASocketWhileItsHostListens) {
    const FileDescriptor folder = made();
    {
        const auto listening = ListeningSocket::publish(folder.number(), host());
        ASSERT_TRUE(listening);
        EXPECT_THAT(names(), ElementsAre(socketName(host())));
        const FileDescriptor client = connectedTo(folder.number(), host());
        EXPECT_TRUE(client);
        EXPECT_TRUE(listening->accepted());
        EXPECT_FALSE(listening->accepted());
    }
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_FALSE(connectedTo(folder.number(), host()));
}

TEST_F(BridgeFolder, mayHaveAPathThatIsTooLongForASocket) {
    const std::string deep = runtime.path(std::string(200, 'd'));
    fs::create_directory(deep);
    const auto folder = openBridgeFolder(deep.c_str(), MissingFolder::make);
    ASSERT_TRUE(folder);
    const auto listening = ListeningSocket::publish(folder->number(), host());
    EXPECT_TRUE(listening && connectedTo(folder->number(), host()));
}

TEST_F(BridgeFolder, leavesASocketToTheHostThatTookItOver) {
    const FileDescriptor folder = made();
    auto earlier = ListeningSocket::publish(folder.number(), host());
    const auto later = ListeningSocket::publish(folder.number(), host());
    earlier.reset();
    ASSERT_TRUE(later);
    EXPECT_TRUE(connectedTo(folder.number(), host()));
    EXPECT_TRUE(later->accepted());
}

TEST_F(BridgeFolder, isClearedOfTheSocketsOfDeadHostsOnly) {
    const FileDescriptor folder = made();
    const auto live = ListeningSocket::publish(folder.number(), host());
    std::ofstream(path + "/" + socketName(host(goneProcess)));
    std::ofstream(path + "/.new-" + std::to_string(goneProcess));
    std::ofstream(path + "/something else");
    // Its browser still runs, so its host may be about to listen again.
    const HostName reconnecting{"org.chromium.Chromium", ::getpid(), "ffffffffffffffff"};
    std::ofstream(path + "/" + socketName(reconnecting));
    removeStaleSockets(folder.number());
    EXPECT_THAT(names(), ::testing::UnorderedElementsAre(socketName(host()), "something else",
                                                         socketName(reconnecting)));
}

TEST_F(BridgeFolder, keepsItsSocketsToOneUser) {
    const FileDescriptor folder = made();
    const auto listening = ListeningSocket::publish(folder.number(), host());
    ASSERT_TRUE(listening);
    const uid_t somebodyElse = ::geteuid() + 1;
    EXPECT_FALSE(connectedTo(folder.number(), host(), somebodyElse));
    const FileDescriptor client = connectedTo(folder.number(), host());
    ASSERT_TRUE(client);
    EXPECT_FALSE(listening->accepted(somebodyElse));
    // A refused connection is closed, not left waiting.
    char byte = 0;
    EXPECT_EQ(::recv(client.number(), &byte, 1, 0), 0);
}

} // namespace
} // namespace brinmoor::bridge

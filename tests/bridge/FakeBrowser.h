#pragma once

#include "bridge/ExtensionIdentity.h"
#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace brinmoor::testing {

/// A process that is a Chromium by its name and starts the real helper program, whose streams are
/// in the test's hands.
class FakeBrowser {
public:
    /// `command` is what the browser's process runs, a shell line in which "$0" is the helper
    /// program and "$1" the extension's origin.
    explicit FakeBrowser(const std::string& runtimeFolder,
                         const std::string& command = "\"$0\" \"$1\"; exit $?",
                         const std::string& name = "chromium",
                         const std::string& origin = std::string(bridge::extensionOrigin))
        : browser_(start(runtimeFolder, command, name, origin)) {
        ::fcntl(browser_.output(), F_SETFL, O_NONBLOCK);
        ::fcntl(browser_.input(), F_SETFL, O_NONBLOCK);
    }

    [[nodiscard]] ChildProcess& process() { return browser_; }

    void send(const std::string& body) {
        EXPECT_TRUE(
            bridge::writeFrame(browser_.input(), body, bridge::frameCapFromBrowser, soon()).ok());
    }
    void sendHello(const std::string& profile = "0123456789abcdef") {
        send(R"({"id":0,"protocol":1,"event":"hello","profile":")" + profile +
             R"(","version":"1"})");
    }
    /// The next frame that the extension would get; "" when there is none.
    [[nodiscard]] std::string receive() {
        const auto frame = bridge::readFrame(browser_.output(), decoder_, soon());
        return frame ? *frame : std::string();
    }

    [[nodiscard]] bridge::HostName host(const std::string& profile = "0123456789abcdef") const {
        return {"org.chromium.Chromium", browser_.process(), profile};
    }

    static bridge::Deadline soon() {
        return std::chrono::steady_clock::now() + std::chrono::seconds(10);
    }

private:
    ChildProcess start(const std::string& runtimeFolder, const std::string& command,
                       const std::string& name, const std::string& origin) {
        const std::string program = folder_.path(name);
        std::filesystem::copy_file("/bin/sh", program);
        return ChildProcess({{program, "-c", command, BRINMOOR_HOST, origin},
                             {{"XDG_RUNTIME_DIR", runtimeFolder}},
                             true});
    }

    ScratchFolder folder_;
    ChildProcess browser_;
    bridge::FrameDecoder decoder_{bridge::frameCapToBrowser};
};

/// A connection to a host's socket, as the automation tool has one.
class HostClient {
public:
    HostClient(const std::string& runtimeFolder, const bridge::HostName& host) {
        (void)eventually([&] {
            const auto folder =
                bridge::openBridgeFolder(runtimeFolder.c_str(), bridge::MissingFolder::leave);
            if (folder)
                connection_ = bridge::connectedTo(folder->number(), host);
            return static_cast<bool>(connection_);
        });
    }

    [[nodiscard]] bool connected() const { return static_cast<bool>(connection_); }
    [[nodiscard]] int number() const { return connection_.number(); }
    void send(const std::string& body) const {
        EXPECT_TRUE(
            bridge::writeFrame(number(), body, bridge::frameCapFromBrowser, FakeBrowser::soon())
                .ok());
    }
    [[nodiscard]] Result<std::string, bridge::FrameFailure> receiveOrFail() {
        return bridge::readFrame(number(), decoder_, FakeBrowser::soon());
    }
    [[nodiscard]] std::string receive() {
        const auto frame = receiveOrFail();
        return frame ? *frame : std::string();
    }
    [[nodiscard]] bool isDropped() {
        const auto frame = receiveOrFail();
        return !frame && frame.error() != bridge::FrameFailure::timedOut;
    }
    void leave() { connection_ = bridge::FileDescriptor(); }

private:
    bridge::FileDescriptor connection_;
    bridge::FrameDecoder decoder_{bridge::frameCapFromBrowser};
};

} // namespace brinmoor::testing

#include "bridge/ExtensionIdentity.h"
#include "bridge/frames/HostSocket.h"
#include "bridge/host/BrowserStreams.h"
#include "bridge/host/OwnBrowser.h"
#include "bridge/host/Relay.h"

#include <sys/signalfd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using namespace brinmoor::bridge;

int fail(const char* reason) {
    std::fprintf(stderr, "brinmoor-browser-host: %s\n", reason);
    return EXIT_FAILURE;
}

FileDescriptor stopSignals() {
    ::sigset_t signals;
    ::sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaddset(&signals, number);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    return FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

const char* folderWords(FolderFailure cause) {
    switch (cause) {
    case FolderFailure::noRuntimeFolder:
        return "the session names no runtime folder";
    case FolderFailure::notOurs:
        return "the sockets' folder belongs to somebody else";
    case FolderFailure::missing:
    case FolderFailure::refused:
        break;
    }
    return "the sockets' folder can't be made";
}

int relay(BrowserStreams streams, const brinmoor::BrowserProcess& browser) {
    auto folder = openBridgeFolder(std::getenv("XDG_RUNTIME_DIR"), MissingFolder::make);
    if (!folder)
        return fail(folderWords(folder.error()));
    removeStaleSockets(folder->number());
    const FileDescriptor stop = stopSignals();
    Relay relaying(std::move(streams), folder->number(), stop.number(), browser.browserID,
                   browser.processIdentifier);
    switch (relaying.run()) {
    case RelayEnd::browserClosed:
    case RelayEnd::stopped:
        return EXIT_SUCCESS;
    case RelayEnd::badFrame:
        return fail("the browser sent something else than frames");
    case RelayEnd::noSocket:
        return fail("the socket can't be made");
    case RelayEnd::broken:
        break;
    }
    return fail("a stream broke");
}

} // namespace

int main(int count, char** arguments) {
    // The browser names the extension that asks; nobody else has any business here.
    if (count < 2 || std::string_view(arguments[1]) != extensionOrigin)
        return fail("only the Brinmoor extension starts this program");
    std::signal(SIGPIPE, SIG_IGN);
    auto streams = takeBrowserStreams();
    if (!streams)
        return fail("the browser's streams are missing");
    const auto browser = ownBrowser();
    if (!browser)
        return fail("no known browser started this program");
    return relay(std::move(*streams), *browser);
}

#include "bridge/host/BrowserStreams.h"

#include <fcntl.h>

namespace brinmoor::bridge {
namespace {

constexpr int firstFreeNumber = 3;

bool makeNonBlocking(int descriptor) {
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK) == 0;
}

} // namespace

std::optional<BrowserStreams> takeBrowserStreams() {
    BrowserStreams streams{
        FileDescriptor(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, firstFreeNumber)),
        FileDescriptor(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, firstFreeNumber))};
    const FileDescriptor nothing(::open("/dev/null", O_RDWR | O_CLOEXEC));
    if (!streams.input || !streams.output || !nothing ||
        ::dup2(nothing.number(), STDIN_FILENO) < 0 || ::dup2(nothing.number(), STDOUT_FILENO) < 0 ||
        !makeNonBlocking(streams.input.number()) || !makeNonBlocking(streams.output.number()))
        return std::nullopt;
    return streams;
}

} // namespace brinmoor::bridge

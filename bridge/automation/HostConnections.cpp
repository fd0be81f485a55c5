#include "bridge/automation/HostConnections.h"

#include "bridge/frames/HostSocket.h"
#include "platform/linux/BrowserProcesses.h"

#include <algorithm>

namespace brinmoor::automation {

using namespace bridge;

HostConnections::HostConnections(const char* runtimeFolder, std::chrono::milliseconds limit)
    : limit_(limit) {
    if (auto folder = openBridgeFolder(runtimeFolder, MissingFolder::leave))
        folder_ = std::move(folder).value();
}

const std::vector<std::string>& HostConnections::connect(const std::string& browserID) {
    const auto [entry, isNew] = marks_.try_emplace(browserID);
    if (isNew && folder_)
        connectAll(browserID, entry->second);
    return entry->second;
}

void HostConnections::connectAll(const std::string& browserID, std::vector<std::string>& marks) {
    for (const HostName& host : hostsIn(folder_.number())) {
        if (host.browserID != browserID)
            continue;
        FileDescriptor descriptor = connectedTo(folder_.number(), host);
        if (!descriptor)
            continue;
        marks.push_back(std::to_string(host.process) + "." + host.profile);
        connections_[marks.back()].descriptor = std::move(descriptor);
    }
}

bool HostConnections::isRunning(const std::string& browserID) {
    if (!connect(browserID).empty())
        return true;
    const auto running = runningBrowserProcesses();
    return std::any_of(running.begin(), running.end(),
                       [&](const BrowserProcess& each) { return each.browserID == browserID; });
}

Result<std::string, ExchangeFailure> HostConnections::exchange(const std::string& mark,
                                                               std::string_view request) {
    Connection& connection = connections_[mark];
    if (!connection.descriptor)
        return failure(connection.failed);
    const Deadline deadline = std::chrono::steady_clock::now() + limit_;
    const int descriptor = connection.descriptor.number();
    FrameFailure cause{};
    if (const auto sent = writeFrame(descriptor, request, frameCapToBrowser, deadline); !sent)
        cause = sent.error();
    else if (auto answer = readFrame(descriptor, connection.incoming, deadline); answer)
        return std::move(answer).value();
    else
        cause = answer.error();
    connection.failed =
        cause == FrameFailure::timedOut ? ExchangeFailure::silent : ExchangeFailure::lost;
    connection.descriptor = FileDescriptor();
    return failure(connection.failed);
}

} // namespace brinmoor::automation

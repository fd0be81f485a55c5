#pragma once

#include "bridge/frames/FileDescriptor.h"
#include "bridge/frames/Frames.h"

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor::automation {

enum class ExchangeFailure {
    silent, ///< no answer within the limit
    lost,   ///< the host ended, or was never there
};

/// The connections of this process to the helper programs of browsers. One thread; an exchange
/// blocks until it is answered or its limit is over.
class HostConnections {
public:
    /// `runtimeFolder` is what the session's XDG_RUNTIME_DIR gives, null when it gives none.
    HostConnections(const char* runtimeFolder, std::chrono::milliseconds limit);

    /// Connects to every live host of the browser, once. Gives their marks, each one process and
    /// profile, sorted; empty when there is none.
    [[nodiscard]] const std::vector<std::string>& connect(const std::string& browserID);

    /// A connected browser runs; for others the running processes are asked.
    [[nodiscard]] bool isRunning(const std::string& browserID);

    /// Sends a request to the host of that mark and gives its answer. A connection that failed is
    /// given up: what comes over it later would answer an older question.
    [[nodiscard]] Result<std::string, ExchangeFailure> exchange(const std::string& mark,
                                                                std::string_view request);

private:
    struct Connection {
        bridge::FileDescriptor descriptor;
        bridge::FrameDecoder incoming{bridge::frameCapFromBrowser};
        ExchangeFailure failed = ExchangeFailure::lost;
    };

    void connectAll(const std::string& browserID, std::vector<std::string>& marks);

    bridge::FileDescriptor folder_;
    std::chrono::milliseconds limit_;
    std::map<std::string, std::vector<std::string>> marks_; ///< by browser
    std::map<std::string, Connection> connections_;         ///< by mark
};

} // namespace brinmoor::automation

#pragma once

#include "tests/support/ChildProcess.h"

#include <optional>
#include <string>
#include <vector>

namespace brinmoor::testing {

/// What the worker answered to one command.
struct WorkerAnswer {
    bool failed = false;
    std::vector<std::string> newest; ///< ids, front to back
};

/// A running model in a process of its own.
class Worker {
public:
    explicit Worker(const std::string& libraryPath);

    /// Sends a command without waiting.
    void send(const std::string& line);
    /// The answer; absent when the process has ended.
    [[nodiscard]] std::optional<WorkerAnswer> receive();
    void kill();

private:
    ChildProcess process_;
    std::string read_;
};

} // namespace brinmoor::testing

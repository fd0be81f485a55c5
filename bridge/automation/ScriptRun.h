#pragma once

#include "bridge/automation/HostConnections.h"

#include <string>
#include <string_view>

namespace brinmoor::automation {

/// What a script came to.
struct Outcome {
    int status = 0;     ///< the process's exit status: 0, or 1 after an uncaught failure
    std::string output; ///< for standard output
    std::string errors; ///< for standard error
};

/// Evaluates the script and calls its function `run`. Needs a QCoreApplication. A text is printed
/// as it is, nothing for undefined and null, JSON for everything else.
[[nodiscard]] Outcome runScript(std::string_view script, HostConnections& connections);

} // namespace brinmoor::automation

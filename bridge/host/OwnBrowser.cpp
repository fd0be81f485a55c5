#include "bridge/host/OwnBrowser.h"

#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

namespace brinmoor::bridge {
namespace {

constexpr int mostAncestors = 16;

std::int32_t parentOf(std::int32_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(file, line);
    // The name in parentheses may hold anything; behind it stand the state and the parent.
    const auto end = line.rfind(')');
    if (end == std::string::npos)
        return 0;
    std::istringstream fields(line.substr(end + 1));
    char state = 0;
    std::int32_t parent = 0;
    fields >> state >> parent;
    return parent;
}

} // namespace

std::optional<BrowserProcess> ownBrowser() {
    std::int32_t process = ::getppid();
    for (int i = 0; i < mostAncestors && process > 1; ++i) {
        if (auto identifier = browserIdentifierOfProcess(process))
            return BrowserProcess{std::move(*identifier), process};
        process = parentOf(process);
    }
    return std::nullopt;
}

} // namespace brinmoor::bridge

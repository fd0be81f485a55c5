#include "bridge/automation/ScriptRun.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using namespace std::chrono_literals;

/// Below the limits of whoever runs the tool, so that a silent browser is told as such.
constexpr auto answerLimit = 10s;
constexpr int wrongUsage = 2;

/// The script, or null when the arguments are not exactly those that the tool takes.
const char* scriptOf(int count, char** arguments) {
    const auto is = [&](int i, std::string_view text) { return arguments[i] == text; };
    return count == 5 && is(1, "-l") && is(2, "JavaScript") && is(3, "-e") ? arguments[4] : nullptr;
}

bool print(const std::string& text, std::FILE* stream) {
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
           std::fflush(stream) == 0;
}

} // namespace

int main(int count, char** arguments) {
    const char* script = scriptOf(count, arguments);
    if (script == nullptr) {
        std::fputs("usage: brinmoor-automation -l JavaScript -e SCRIPT\n", stderr);
        return wrongUsage;
    }
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(count, arguments);
    brinmoor::automation::HostConnections connections(std::getenv("XDG_RUNTIME_DIR"), answerLimit);
    const auto outcome = brinmoor::automation::runScript(script, connections);
    const bool printed = print(outcome.output, stdout) && print(outcome.errors, stderr);
    return printed ? outcome.status : EXIT_FAILURE;
}

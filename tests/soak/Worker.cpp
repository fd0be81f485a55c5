#include "tests/soak/Worker.h"

#include <unistd.h>

#include <array>
#include <csignal>
#include <sstream>

namespace brinmoor::testing {

Worker::Worker(const std::string& libraryPath)
    : process_(ChildOptions{{LIBRARY_WORKER, libraryPath}, {}, false}) {}

void Worker::send(const std::string& line) {
    const std::string sent = line + "\n";
    static_cast<void>(!::write(process_.input(), sent.data(), sent.size()));
}

std::optional<WorkerAnswer> Worker::receive() {
    std::array<char, 4096> buffer{};
    while (read_.find('\n') == std::string::npos) {
        const auto count = ::read(process_.output(), buffer.data(), buffer.size());
        if (count <= 0)
            return std::nullopt;
        read_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    std::istringstream line(read_.substr(0, read_.find('\n')));
    read_.erase(0, read_.find('\n') + 1);
    WorkerAnswer answer;
    std::string field;
    std::getline(line, field, '\t');
    answer.failed = field == "failed";
    while (std::getline(line, field, '\t'))
        answer.newest.push_back(field);
    return answer;
}

void Worker::kill() {
    process_.signal(SIGKILL);
    static_cast<void>(process_.waitForExit());
}

} // namespace brinmoor::testing

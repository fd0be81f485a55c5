#include "tests/support/ChildProcess.h"

#include "tests/support/Eventually.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>

extern char** environ; // NOLINT: the C library's own

namespace brinmoor::testing {
namespace {

using Pipe = std::array<int, 2>;

Pipe newPipe() {
    Pipe ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    return ends;
}

std::vector<std::string> environmentWith(const Environment& added) {
    std::vector<std::string> all;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        if (!added.contains(std::string(text.substr(0, text.find('=')))))
            all.emplace_back(text);
    }
    for (const auto& [name, value] : added)
        all.push_back(name + "=" + value);
    return all;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

void resetSignals(posix_spawnattr_t& attributes) {
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
}

pid_t spawn(const ChildOptions& options, int input, int output, int errors) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    if (errors >= 0)
        posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
    if (options.discardErrors)
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF |
                                              POSIX_SPAWN_SETSIGMASK);
    posix_spawnattr_setpgroup(&attributes, 0);
    resetSignals(attributes);
    auto arguments = options.arguments;
    auto environment = environmentWith(options.environment);
    pid_t process = -1;
    const int error =
        ::posix_spawn(&process, options.arguments.front().c_str(), &actions, &attributes,
                      pointersTo(arguments).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    if (error != 0)
        throw std::runtime_error("can't start " + options.arguments.front());
    return process;
}

int statusOf(int waited) {
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : 128 + WTERMSIG(waited);
}

std::string contentOf(int descriptor) {
    std::string content;
    std::array<char, 65536> piece{};
    for (;;) {
        const ssize_t size = ::read(descriptor, piece.data(), piece.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            break;
        content.append(piece.data(), static_cast<std::size_t>(size));
    }
    ::close(descriptor);
    return content;
}

} // namespace

ChildProcess::ChildProcess(const ChildOptions& options) {
    const Pipe in = newPipe();
    const Pipe out = newPipe();
    process_ = spawn(options, in[0], out[1], -1);
    ::close(in[0]);
    ::close(out[1]);
    input_ = in[1];
    output_ = out[0];
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept {
    *this = std::move(other);
}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    std::swap(process_, other.process_);
    std::swap(input_, other.input_);
    std::swap(output_, other.output_);
    std::swap(status_, other.status_);
    return *this;
}

ChildProcess::~ChildProcess() {
    closeInput();
    closeOutput();
    endGroup();
}

void ChildProcess::closeInput() {
    if (input_ >= 0)
        ::close(std::exchange(input_, -1));
}

void ChildProcess::closeOutput() {
    if (output_ >= 0)
        ::close(std::exchange(output_, -1));
}

void ChildProcess::signal(int number) const {
    if (process_ > 0 && !status_)
        ::kill(process_, number);
}

std::optional<int> ChildProcess::waitForExit(std::chrono::milliseconds limit) {
    (void)eventually(
        [&] {
            int waited = 0;
            if (!status_ && ::waitpid(process_, &waited, WNOHANG) == process_)
                status_ = statusOf(waited);
            return status_.has_value();
        },
        limit);
    return status_;
}

void ChildProcess::endGroup() {
    if (process_ <= 0)
        return;
    ::kill(-process_, SIGTERM);
    if (!waitForExit(std::chrono::seconds(5))) {
        ::kill(-process_, SIGKILL);
        (void)waitForExit();
    }
    // The first process may end before those that it started.
    ::kill(-process_, SIGKILL);
    process_ = -1;
}

ProcessResult runProgram(const std::vector<std::string>& arguments,
                         const Environment& environment) {
    const Pipe in = newPipe();
    const Pipe out = newPipe();
    const Pipe errors = newPipe();
    const pid_t process = spawn({arguments, environment, false}, in[0], out[1], errors[1]);
    for (const int end : {in[0], in[1], out[1], errors[1]})
        ::close(end);
    ProcessResult result;
    std::thread reader([&] { result.errors = contentOf(errors[0]); });
    result.output = contentOf(out[0]);
    reader.join();
    int waited = 0;
    while (::waitpid(process, &waited, 0) < 0 && errno == EINTR) {
    }
    result.status = statusOf(waited);
    return result;
}

} // namespace brinmoor::testing

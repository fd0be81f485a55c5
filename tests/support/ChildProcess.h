#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor::testing {

using Environment = std::map<std::string, std::string>;

struct ChildOptions {
    std::vector<std::string> arguments; ///< the program first, by its path
    Environment environment;            ///< on top of this process's own
    bool discardErrors = false;         ///< send standard error to /dev/null
};

/// A program in a process group of its own, with pipes to its standard input and output. The
/// whole group is ended with the object.
class ChildProcess {
public:
    explicit ChildProcess(const ChildOptions& options);
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;
    ~ChildProcess();

    [[nodiscard]] pid_t process() const { return process_; }
    [[nodiscard]] int input() const { return input_; }
    [[nodiscard]] int output() const { return output_; }
    void closeInput();
    void closeOutput();
    void signal(int number) const;
    /// The exit status, 128 and the number of a signal that ended it; absent when it still runs
    /// at the end of `limit`.
    [[nodiscard]] std::optional<int>
    waitForExit(std::chrono::milliseconds limit = std::chrono::seconds(20));
    void endGroup();

private:
    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::optional<int> status_;
};

struct ProcessResult {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs a program to its end.
[[nodiscard]] ProcessResult runProgram(const std::vector<std::string>& arguments,
                                       const Environment& environment = {});

} // namespace brinmoor::testing

#pragma once

#include "tests/platform/linux/TestFolder.h"

#include <QProcess>

#include <filesystem>
#include <string>

namespace brinmoor::testing {

/// A program of a given name that runs and, where a class is given, shows a window.
class TestProgram {
public:
    TestProgram(const std::string& name, const QStringList& options) {
        const auto program = folder_.path(name);
        std::filesystem::create_directories(std::filesystem::path(program).parent_path());
        std::filesystem::copy_file(WINDOW_PROGRAM, program);
        process_.start(QString::fromStdString(program), options);
        while (!process_.canReadLine() && process_.waitForReadyRead(10000)) {
        }
    }
    ~TestProgram() { end(); }
    TestProgram(const TestProgram&) = delete;
    TestProgram& operator=(const TestProgram&) = delete;

    void end() {
        process_.closeWriteChannel();
        process_.waitForFinished(10000);
    }

    [[nodiscard]] std::int32_t process() const {
        return static_cast<std::int32_t>(process_.processId());
    }

private:
    TestFolder folder_;
    QProcess process_;
};

} // namespace brinmoor::testing

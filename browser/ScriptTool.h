#pragma once

#include "browser/ScriptRunner.h"

#include <QString>

#include <chrono>

namespace brinmoor {

/// Runs scripts through the script tool: one child process for each, started with exactly the
/// arguments `-l JavaScript -e SCRIPT`, both of its pipes drained while it runs.
class ScriptTool final : public ScriptRunner {
public:
    struct Limits {
        std::chrono::milliseconds operation{15'000};
        std::chrono::milliseconds pageCapture{60'000};
        /// What a child has to die after it was asked to, before it is killed.
        std::chrono::milliseconds grace{2'000};
    };

    explicit ScriptTool(QString program);
    ScriptTool(QString program, Limits limits);

    QCoro::Task<Result<QByteArray, CaptureFailure>> run(ScriptRun run) override;

private:
    QString program_;
    Limits limits_;
};

} // namespace brinmoor

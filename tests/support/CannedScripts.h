#pragma once

#include "browser/ScriptRunner.h"

#include <QCoroFuture>
#include <QPromise>

#include <functional>
#include <utility>
#include <vector>

namespace brinmoor::testing {

/// Answers scripts with what a test says, and takes down what was run.
class CannedScripts final : public ScriptRunner {
public:
    using Answer = Result<QByteArray, CaptureFailure>;

    std::function<Answer(const ScriptRun&)> answer = [](const ScriptRun&) {
        return Answer(QByteArray("[]"));
    };
    enum class Hold { nothing, everything, operations };
    /// Which runs stay under way until release().
    Hold hold = Hold::nothing;
    std::vector<ScriptRun> runs;

    QCoro::Task<Answer> run(ScriptRun run) override {
        runs.push_back(run);
        QPromise<Answer> promise;
        promise.start();
        const QFuture<Answer> future = promise.future();
        const bool held = hold == Hold::everything ||
                          (hold == Hold::operations && run.kind == ScriptRun::Kind::operation);
        waiting_.emplace_back(std::move(run), std::move(promise));
        if (!held)
            release();
        Answer result = co_await future;
        co_return result;
    }

    void release() {
        for (auto& [run, promise] : std::exchange(waiting_, {})) {
            promise.addResult(answer(run));
            promise.finish();
        }
    }

private:
    std::vector<std::pair<ScriptRun, QPromise<Answer>>> waiting_;
};

} // namespace brinmoor::testing

#pragma once

#include "core/Result.h"
#include "core/capture/CaptureError.h"

#include <QByteArray>
#include <QCoroTask>

#include <string>
#include <variant>

namespace brinmoor {

/// A failure that has no words of its own for the user: the tool could not be started, or what it
/// printed made no sense.
struct OtherFailure {
    std::string description;
    friend bool operator==(const OtherFailure&, const OtherFailure&) = default;
};

using CaptureFailure = std::variant<CaptureError, OtherFailure>;

/// One script to run. The kinds differ in their time limit and in how a failure is read.
struct ScriptRun {
    enum class Kind {
        operation,   ///< 15 s; every failure is CaptureError `failed`
        pageCapture, ///< 60 s; a refused permission is CaptureError `permission`
    };
    std::string script;
    Kind kind = Kind::operation;
    std::string browserName; ///< for the words of a page capture's refusal
};

/// The one narrow door to a browser: a script in, bytes or a classified failure out. Main thread;
/// the caller is suspended, never blocked. Exactly one result is delivered for each run.
class ScriptRunner {
public:
    virtual ~ScriptRunner() = default;
    virtual QCoro::Task<Result<QByteArray, CaptureFailure>> run(ScriptRun run) = 0;
};

} // namespace brinmoor

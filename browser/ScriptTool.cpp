#include "browser/ScriptTool.h"

#include "core/text/Utf8.h"
#include "core/text/Wording.h"

#include <QCoroFuture>
#include <QProcess>
#include <QPromise>
#include <QTimer>

#include <memory>
#include <optional>
#include <string_view>

namespace brinmoor {
namespace {

/// How a child ended.
struct Outcome {
    std::optional<QString> startFailure;
    bool succeeded = false;
    QByteArray output;
    QByteArray errors;
};

/// One child from its start to its end. Owns itself: whoever waits may lose interest, the child's
/// end is seen all the same.
class Child final : public QObject {
public:
    Child(const QString& program, const QString& script, std::chrono::milliseconds limit,
          std::chrono::milliseconds grace)
        : grace_(grace) {
        promise_.start();
        process_.setStandardInputFile(QProcess::nullDevice());
        connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                end({.startFailure = process_.errorString(), .output = {}, .errors = {}});
        });
        connect(&process_, &QProcess::finished, this, &Child::finished);
        connect(&timer_, &QTimer::timeout, this, &Child::overdue);
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.start(limit);
        process_.start(
            program,
            {QStringLiteral("-l"), QStringLiteral("JavaScript"), QStringLiteral("-e"), script},
            QIODevice::ReadOnly);
    }

    [[nodiscard]] QFuture<Outcome> outcome() { return promise_.future(); }

private:
    void finished(int code, QProcess::ExitStatus status) {
        end({.startFailure = {},
             .succeeded = status == QProcess::NormalExit && code == 0,
             .output = process_.readAllStandardOutput(),
             .errors = process_.readAllStandardError()});
    }

    void overdue() {
        if (std::exchange(asked_, true)) {
            process_.kill();
            return;
        }
        process_.terminate();
        timer_.start(grace_);
    }

    void end(Outcome outcome) {
        if (std::exchange(ended_, true))
            return;
        timer_.stop();
        promise_.addResult(std::move(outcome));
        promise_.finish();
        deleteLater();
    }

    QProcess process_;
    QTimer timer_;
    QPromise<Outcome> promise_;
    std::chrono::milliseconds grace_;
    bool asked_ = false;
    bool ended_ = false;
};

/// The text of standard error; bytes that are not UTF-8 count as no text at all.
QString errorText(const QByteArray& bytes) {
    const std::string_view text(bytes.data(), static_cast<std::size_t>(bytes.size()));
    return text::isUtf8(text) ? QString::fromUtf8(bytes) : QString();
}

CaptureError failed(std::string_view sentence) {
    return {CaptureError::Cause::failed, text::worded(sentence)};
}

/// The number is what the browser's automation reports when access to it was refused; it is looked
/// for as a plain substring.
CaptureError classified(const ScriptRun& run, const QByteArray& errors) {
    const QString text = errorText(errors);
    const bool refused = text.contains(QStringLiteral("1743"));
    if (run.kind == ScriptRun::Kind::operation)
        return refused
                   ? failed("Allow Brinmoor in System Settings → Privacy & Security → Automation.")
                   : failed("The browser did not respond. Try refreshing.");
    if (refused || text.contains(QStringLiteral("not authorized"), Qt::CaseInsensitive))
        return {CaptureError::Cause::permission, run.browserName};
    return failed("Check that the browser has an open window and try again.");
}

} // namespace

ScriptTool::ScriptTool(QString program) : ScriptTool(std::move(program), Limits{}) {}

ScriptTool::ScriptTool(QString program, Limits limits)
    : program_(std::move(program)), limits_(limits) {}

QCoro::Task<Result<QByteArray, CaptureFailure>> ScriptTool::run(ScriptRun run) {
    const auto limit =
        run.kind == ScriptRun::Kind::operation ? limits_.operation : limits_.pageCapture;
    auto* child = new Child(program_, QString::fromStdString(run.script), limit, limits_.grace);
    const QFuture<Outcome> ending = child->outcome();
    const Outcome outcome = co_await ending;
    if (outcome.startFailure) {
        OtherFailure other{outcome.startFailure->toStdString()};
        co_return failure(CaptureFailure(std::move(other)));
    }
    if (!outcome.succeeded)
        co_return failure(CaptureFailure(classified(run, outcome.errors)));
    co_return outcome.output;
}

} // namespace brinmoor

#include "browser/ScriptTool.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <gmock/gmock.h>

#include <optional>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using testing::TemporaryFolder;
using testing::waitUntil;
using Answer = Result<QByteArray, CaptureFailure>;

/// The real run of a child that is a shell script of the test's.
class ScriptToolTest : public ::testing::Test {
protected:
    Answer run(const std::string& body, ScriptRun::Kind kind = ScriptRun::Kind::operation,
               std::string script = "the script") {
        const std::string path = folder.path("tool");
        testing::writeBytes(path, "#!/bin/bash\n" + body + "\n");
        QFile::setPermissions(QString::fromStdString(path),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        ScriptTool tool(QString::fromStdString(path), limits);
        return outcome(tool, {std::move(script), kind, "Chromium"});
    }

    static Answer outcome(ScriptTool& tool, ScriptRun wanted) {
        std::optional<Answer> answer;
        int delivered = 0;
        auto task = [&]() -> QCoro::Task<> {
            answer = co_await tool.run(std::move(wanted));
            ++delivered;
        };
        task();
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        testing::settle();
        EXPECT_EQ(delivered, 1);
        return *answer;
    }

    static CaptureError errorOf(const Answer& answer) {
        EXPECT_FALSE(answer.ok());
        const auto* error = std::get_if<CaptureError>(&answer.error());
        EXPECT_NE(error, nullptr);
        return error != nullptr ? *error : CaptureError{};
    }

    static CaptureError failed(const char* detail) { return {CaptureError::Cause::failed, detail}; }

    TemporaryFolder folder;
    ScriptTool::Limits limits{.operation = 5s, .pageCapture = 10s, .grace = 1s};
};

constexpr auto notResponding = "The browser did not respond. Try refreshing.";
constexpr auto refusedSentence =
    "Allow Brinmoor in System Settings → Privacy & Security → Automation.";

TEST_F(ScriptToolTest, theToolGetsExactlyFourArguments) {
    const auto answer = run("printf '%s|' \"$#\" \"$@\"", ScriptRun::Kind::operation,
                            "function run() { return 'a \"b\"'; }\nsecond line ’");
    EXPECT_EQ(answer.value().toStdString(),
              "4|-l|JavaScript|-e|function run() { return 'a \"b\"'; }\nsecond line ’|");
}

TEST_F(ScriptToolTest, standardInputIsEmpty) {
    EXPECT_EQ(run("cat; echo end").value(), "end\n");
}

TEST_F(ScriptToolTest, nothingPrintedIsEmptyBytesAndNoFailure) {
    EXPECT_EQ(run("exit 0").value(), QByteArray());
}

TEST_F(ScriptToolTest, aFloodOnStandardErrorHangsNothing) {
    const auto answer = run("head -c 3000000 /dev/zero | tr '\\0' x >&2; echo done");
    EXPECT_EQ(answer.value(), "done\n");
}

TEST_F(ScriptToolTest, floodsOnBothPipesArriveWhole) {
    const auto answer = run("head -c 3000000 /dev/zero >&2 & head -c 5000000 /dev/zero; wait");
    EXPECT_EQ(answer.value().size(), 5'000'000);
}

TEST_F(ScriptToolTest, aRefusalIsKnownByItsNumber) {
    EXPECT_EQ(errorOf(run("echo 'error: Not permitted (-1743)' >&2; exit 1")),
              failed(refusedSentence));
}

TEST_F(ScriptToolTest, theNumberInsideALongerNumberCountsToo) {
    EXPECT_EQ(errorOf(run("echo 'error 917430' >&2; exit 1")), failed(refusedSentence));
}

TEST_F(ScriptToolTest, otherFailuresAreNotResponding) {
    EXPECT_EQ(errorOf(run("echo 'not authorized' >&2; exit 1")), failed(notResponding));
    EXPECT_EQ(errorOf(run("exit 3")), failed(notResponding));
    EXPECT_EQ(errorOf(run("kill -SEGV $$")), failed(notResponding));
}

TEST_F(ScriptToolTest, standardErrorThatIsNotUtf8CountsAsEmpty) {
    EXPECT_EQ(errorOf(run("printf '1743 \\xff\\xfe' >&2; exit 1")), failed(notResponding));
    EXPECT_EQ(errorOf(run("printf '1743 \\xc3' >&2; exit 1")), failed(notResponding));
    EXPECT_EQ(errorOf(run("printf '1743 \\xc3\\xa9' >&2; exit 1")), failed(refusedSentence));
}

TEST_F(ScriptToolTest, theNumberIsNoFailureWhenTheToolSucceeds) {
    EXPECT_EQ(run("echo 1743 >&2; echo fine").value(), "fine\n");
}

TEST_F(ScriptToolTest, aPageCaptureTellsARefusalByTheBrowsersName) {
    const CaptureError refusal{CaptureError::Cause::permission, "Chromium"};
    const auto kind = ScriptRun::Kind::pageCapture;
    EXPECT_EQ(errorOf(run("echo '(-1743)' >&2; exit 1", kind)), refusal);
    EXPECT_EQ(errorOf(run("echo 'NOT Authorized to send' >&2; exit 1", kind)), refusal);
    EXPECT_EQ(errorOf(run("echo other >&2; exit 1", kind)),
              failed("Check that the browser has an open window and try again."));
}

TEST_F(ScriptToolTest, aRunThatHangsIsEndedAtItsLimit) {
    limits.operation = 300ms;
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(errorOf(run("exec sleep 60")), failed(notResponding));
    EXPECT_GE(timer.elapsed(), 300);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(ScriptToolTest, aChildThatWillNotEndIsKilled) {
    limits.operation = 200ms;
    limits.grace = 200ms;
    EXPECT_EQ(errorOf(run("trap '' TERM; while true; do :; done")), failed(notResponding));
}

TEST_F(ScriptToolTest, everyKindHasItsOwnLimit) {
    limits.operation = 200ms;
    EXPECT_EQ(run("sleep 0.6; echo read", ScriptRun::Kind::pageCapture).value(), "read\n");
    EXPECT_FALSE(run("sleep 0.6; echo read", ScriptRun::Kind::operation).ok());
}

TEST_F(ScriptToolTest, theLimitsAreFifteenAndSixtySeconds) {
    const ScriptTool::Limits given;
    EXPECT_EQ(given.operation, 15s);
    EXPECT_EQ(given.pageCapture, 60s);
}

TEST_F(ScriptToolTest, aToolThatCannotStartIsThePlatformsError) {
    ScriptTool tool(QString::fromStdString(folder.path("missing")), limits);
    const auto answer = outcome(tool, {"x", ScriptRun::Kind::operation, {}});
    ASSERT_FALSE(answer.ok());
    const auto* other = std::get_if<OtherFailure>(&answer.error());
    ASSERT_NE(other, nullptr);
    EXPECT_FALSE(other->description.empty());
}

TEST_F(ScriptToolTest, runsAreIndependentOfEachOther) {
    const std::string path = folder.path("both");
    testing::writeBytes(path, "#!/bin/bash\n[ \"$4\" = slow ] && sleep 0.5\necho \"$4\"\n");
    QFile::setPermissions(QString::fromStdString(path), QFile::ReadOwner | QFile::ExeOwner);
    ScriptTool tool(QString::fromStdString(path), limits);
    QByteArrayList order;
    auto start = [&](std::string script) -> QCoro::Task<> {
        ScriptRun wanted{std::move(script), ScriptRun::Kind::operation, {}};
        const auto answer = co_await tool.run(std::move(wanted));
        order.append(answer.value().trimmed());
    };
    start("slow");
    start("quick");
    ASSERT_TRUE(waitUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (QByteArrayList{"quick", "slow"}));
}

} // namespace
} // namespace brinmoor

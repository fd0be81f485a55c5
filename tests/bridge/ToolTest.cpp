#include "tests/bridge/ScriptRunning.h"

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

using ::testing::HasSubstr;

ProcessResult runWith(const std::vector<std::string>& arguments) {
    std::vector<std::string> line{BRINMOOR_AUTOMATION};
    line.insert(line.end(), arguments.begin(), arguments.end());
    return runProgram(line);
}

TEST(AutomationTool, takesExactlyItsFourArguments) {
    const std::string run = "function run() { return 1; }";
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{},
                                               {"-l", "JavaScript", "-e"},
                                               {"-l", "AppleScript", "-e", run},
                                               {"-e", run, "-l", "JavaScript"},
                                               {"-l", "JavaScript", "-e", run, "more"},
                                               {"--help"}}) {
        const auto result = runWith(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_THAT(result.errors, HasSubstr("usage"));
    }
}

struct PrintCase {
    const char* expression;
    const char* printed;
};

class PrintedResult : public ::testing::TestWithParam<PrintCase> {};

TEST_P(PrintedResult, isTextAsItIsAndJsonOtherwise) {
    const auto result =
        runTool(std::string("function run() { return ") + GetParam().expression + "; }");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, GetParam().printed);
    EXPECT_EQ(result.errors, "");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PrintedResult,
    ::testing::Values(PrintCase{"'plain \"text\" ü 日本'", "plain \"text\" ü 日本\n"},
                      PrintCase{"''", "\n"}, PrintCase{"undefined", ""}, PrintCase{"null", ""},
                      PrintCase{"true", "true\n"}, PrintCase{"42", "42\n"},
                      PrintCase{"[1,'a',{b:null}]", "[1,\"a\",{\"b\":null}]\n"},
                      PrintCase{"() => 1", ""}));

struct FailureCase {
    const char* script;
    const char* message;
};

class UncaughtFailure : public ::testing::TestWithParam<FailureCase> {};

TEST_P(UncaughtFailure, isToldWithItsNumber) {
    const auto result = runTool(GetParam().script);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, std::string("execution error: Error: ") + GetParam().message + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, UncaughtFailure,
    ::testing::Values(FailureCase{"function run() { throw new Error('broken'); }",
                                  "broken (-2700)"},
                      FailureCase{"function run() { throw 'text'; }", "text (-2700)"},
                      FailureCase{"function run() { throw undefined; }", "undefined (-2700)"},
                      FailureCase{"function run() { const e = new Error('x'); e.errorNumber = -5; "
                                  "throw e; }",
                                  "x (-5)"},
                      FailureCase{"function other() {}", "The script has no function run. (-2700)"},
                      FailureCase{"throw new Error('early')", "early (-2700)"}));

TEST(AutomationTool, tellsAScriptThatCannotBeParsed) {
    const auto result = runTool("function run( {");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("execution error: Error: "));
}

} // namespace
} // namespace brinmoor::testing

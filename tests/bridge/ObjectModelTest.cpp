#include "tests/bridge/ScriptRunning.h"
#include "tests/bridge/SimulatedBrowser.h"
#include "tests/support/Eventually.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace brinmoor::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string chromium = "org.chromium.Chromium";
const std::string safari = "com.apple.Safari";

class Tool : public ::testing::Test {
protected:
    [[nodiscard]] ProcessResult run(const std::string& script) const {
        return runTool(script, {{"XDG_RUNTIME_DIR", runtime.path()}});
    }
    /// What `expression` gives for the application object `app` of a browser.
    [[nodiscard]] ProcessResult evaluate(const std::string& browserID,
                                         const std::string& expression) const {
        return run("function run() { const app = Application('" + browserID + "'); return " +
                   expression + "; }");
    }
    [[nodiscard]] std::string value(const std::string& browserID,
                                    const std::string& expression) const {
        const auto result = evaluate(browserID, expression);
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.output;
    }
    /// The number of the error that `expression` raises, -1 if it raises none.
    [[nodiscard]] std::string errorNumber(const std::string& browserID,
                                          const std::string& expression) const {
        return value(browserID, "(() => { try { " + expression +
                                    "; return -1; } catch (e) { return e.errorNumber; } })()");
    }

    ScratchFolder runtime;
    std::vector<SimulatedWindow> windows{
        {10, {{1, "https://a.example/", "A"}, {2, "https://b.example/", "B"}}, 1},
        {20, {{3, "https://c.example/", "C"}}, 0, true}};
};

TEST_F(Tool, saysThatNothingRuns) {
    EXPECT_EQ(value(safari, "app.running()"), "false\n");
    EXPECT_EQ(errorNumber(safari, "app.windows.length"), "-600\n");
}

TEST_F(Tool, givesAllWindowsAndTabsForOneRequest) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    EXPECT_EQ(value(chromium, "app.windows().map(w => w.tabs().map(t => [t.url(), t.title(), "
                              "t.index()]))"),
              "[[[\"https://a.example/\",\"A\",1],[\"https://b.example/\",\"B\",2]],"
              "[[\"https://c.example/\",\"C\",1]]]\n");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows"));
}

TEST_F(Tool, offersWindowsAsAListThatCanBeCalledCountedAndIndexed) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    EXPECT_EQ(value(chromium, "[app.running(), app.windows.length, app.windows().length, "
                              "app.windows[1].tabs.length, app.windows[1].tabs[0].url(), "
                              "app.windows[1].minimized(), app.windows[0].miniaturized(), "
                              "app.windows[1].index(), app.windows[0].activeTabIndex()]"),
              "[true,2,2,1,\"https://c.example/\",true,false,2,2]\n");
}

TEST_F(Tool, readsOnePropertyOfAWholeCollection) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    EXPECT_EQ(value(chromium, "[app.windows.id(), app.windows[0].tabs.id(), "
                              "app.windows[0].tabs.url(), app.windows[0].tabs.title()]"),
              "[[\"10.4711.00000000000000aa\",\"20.4711.00000000000000aa\"],"
              "[\"1.4711.00000000000000aa\",\"2.4711.00000000000000aa\"],"
              "[\"https://a.example/\",\"https://b.example/\"],[\"A\",\"B\"]]\n");
}

TEST_F(Tool, takesTheActiveTabByCallAndByName) {
    for (const std::string& id : {chromium, safari}) {
        SimulatedBrowser browser(runtime.path(), {.browserID = id}, windows);
        EXPECT_EQ(value(id, "[app.windows[0].activeTab().url(), app.windows[0].currentTab().url(),"
                            " app.windows[0].activeTab.url(), app.windows[0].currentTab.index()]"),
                  "[\"https://b.example/\",\"https://b.example/\",\"https://b.example/\",2]\n");
    }
}

TEST_F(Tool, keepsTheDialectsApart) {
    SimulatedBrowser one(runtime.path(), {}, windows);
    SimulatedBrowser other(runtime.path(), {.browserID = safari}, windows);
    const std::string kinds = "[typeof app.doJavaScript, ...['id', 'title', 'name', 'execute'].map("
                              "key => typeof app.windows[0].tabs[0][key])]";
    EXPECT_EQ(value(chromium, kinds),
              "[\"undefined\",\"function\",\"function\",\"undefined\",\"function\"]\n");
    EXPECT_EQ(value(safari, kinds),
              "[\"function\",\"undefined\",\"undefined\",\"function\",\"undefined\"]\n");
}

TEST_F(Tool, readsATabAfreshWhenItIsTakenByItsPlace) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    browser.beforeRequest = [](const std::string& request, auto& all) {
        if (request == "tab")
            all[0].tabs[0].url = "https://elsewhere.example/";
    };
    EXPECT_EQ(value(chromium, "[app.windows[0].tabs()[0].url(), app.windows[0].tabs[0].url()]"),
              "[\"https://a.example/\",\"https://elsewhere.example/\"]\n");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows", "tab"));
}

TEST_F(Tool, readsIdentifiersAfreshEachTime) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    (void)value(chromium, "[app.windows.id(), app.windows.id()]");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows", "windows"));
    (void)value(chromium, "[app.windows[0].tabs.id(), app.windows[0].tabs.id()]");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows", "windows"));
}

TEST_F(Tool, readsTheTabsOfAViewThatWasOnlyJustTaken) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    (void)value(chromium, "[app.windows.id(), app.windows[0].tabs.id()]");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows"));
}

TEST_F(Tool, readsTabsAnewOnceAnythingElseWasAsked) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    (void)value(chromium,
                "[app.windows.id(), app.windows[0].tabs[0].url(), app.windows[0].tabs.id()]");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows", "tab", "windows"));
    (void)value(chromium, "(() => { const w = app.windows[0]; w.index = 1; w.tabs.id(); })()");
    EXPECT_THAT(browser.takeRequests(), ElementsAre("windows", "focusWindow", "windows"));
}

TEST_F(Tool, selectsATabAndBringsItsWindowForward) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    EXPECT_EQ(value(chromium, "(() => { const w = app.windows()[1]; w.activeTabIndex = 1; "
                              "w.minimized = false; w.index = 1; app.activate(); return "
                              "[w.minimized(), w.index()]; })()"),
              "[false,1]\n");
    EXPECT_EQ(browser.windows()[0].id, 20);
}

TEST_F(Tool, keepsAWindowInFrontThoughAnotherStillReportsTheFocus) {
    windows[0].focused = true;
    SimulatedBrowser browser(runtime.path(), {}, windows);
    (void)value(chromium, "(() => { app.windows()[1].index = 1; app.activate(); })()");
    EXPECT_EQ(browser.windows()[0].id, 20);
}

TEST_F(Tool, activatesTheFocusedWindowWhenTheOneBroughtForwardIsGone) {
    windows[0].focused = true;
    SimulatedBrowser browser(runtime.path(), {}, windows);
    browser.beforeRequest = [&, asked = 0](const std::string& request, auto& all) mutable {
        if (request == "windows" && ++asked == 2)
            std::erase_if(all, [](const SimulatedWindow& window) { return window.id == 20; });
    };
    (void)value(chromium, "(() => { app.windows()[1].index = 1; app.activate(); })()");
    EXPECT_EQ(browser.windows()[0].id, windows[0].id);
    EXPECT_THAT(browser.takeRequests(),
                ElementsAre("windows", "focusWindow", "windows", "focusWindow"));
}

TEST_F(Tool, selectsTheTabThatStoodAtThePlaceWhenItWasRead) {
    SimulatedBrowser browser(runtime.path(), {.browserID = safari}, windows);
    browser.beforeRequest = [](const std::string& request, auto& all) {
        if (request == "selectTab")
            std::swap(all[0].tabs[0], all[0].tabs[1]);
    };
    (void)value(safari, "(() => { const w = app.windows()[0]; const tabs = w.tabs(); "
                        "w.currentTab = tabs[0]; })()");
    const auto after = browser.windows()[0];
    EXPECT_EQ(after.tabs[after.active].id, 1);
}

struct VanishCase {
    const char* expression;
};

class VanishedObject : public Tool, public ::testing::WithParamInterface<VanishCase> {};

TEST_P(VanishedObject, raisesItsNumber) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    EXPECT_EQ(errorNumber(chromium, GetParam().expression), "-1728\n");
}

INSTANTIATE_TEST_SUITE_P(Cases, VanishedObject,
                         ::testing::Values(VanishCase{"app.windows[7].id()"},
                                           VanishCase{"app.windows[7].tabs()"},
                                           VanishCase{"app.windows[0].tabs[7].url()"},
                                           VanishCase{"app.windows[0].tabs[7].close()"},
                                           VanishCase{"app.windows[0].activeTabIndex = 9"},
                                           VanishCase{"app.windows[9].minimized = false"},
                                           VanishCase{"app.windows[9].index = 1"}));

TEST_F(Tool, raisesTheSameNumberForATabThatVanishesMeanwhile) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    browser.beforeRequest = [](const std::string& request, auto& all) {
        if (request == "tab" || request == "closeTab")
            all[0].tabs.clear();
    };
    EXPECT_EQ(errorNumber(chromium, "app.windows[0].tabs[0].url()"), "-1728\n");
    browser.change([this](auto& all) { all = windows; });
    EXPECT_EQ(errorNumber(chromium, "app.windows[0].tabs()[0].close()"), "-1728\n");
}

TEST_F(Tool, leavesATabOpenThatGoesElsewhereBetweenTheReadAndTheClose) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    browser.beforeRequest = [](const std::string& request, auto& all) {
        if (request == "closeTab")
            all[0].tabs[0].url = "https://elsewhere.example/";
    };
    EXPECT_EQ(errorNumber(chromium, "const t = app.windows[0].tabs[0]; t.url(); t.close()"),
              "-1728\n");
    EXPECT_EQ(browser.windows()[0].tabs.size(), 2U);
}

TEST_F(Tool, runsNoTextInAPageButThePageReader) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    SimulatedBrowser other(runtime.path(), {.browserID = safari}, windows);
    EXPECT_EQ(errorNumber(chromium, "app.windows[0].tabs[0].execute({javascript: 'alert(1)'})"),
              "-10000\n");
    EXPECT_EQ(errorNumber(chromium, "app.windows[0].tabs[0].execute()"), "-10000\n");
    EXPECT_EQ(errorNumber(safari, "app.doJavaScript('alert(1)', {in: app.windows[0].tabs[0]})"),
              "-10000\n");
    EXPECT_THAT(browser.takeRequests(), Not(::testing::Contains("readPage")));
    EXPECT_THAT(other.takeRequests(), Not(::testing::Contains("readPage")));
}

TEST_F(Tool, runsThePageReaderInTheCurrentTabOfSafari) {
    windows[0].tabs[1].pageText = "{\"url\":\"x\"}";
    SimulatedBrowser browser(runtime.path(), {.browserID = safari}, windows);
    EXPECT_EQ(value(safari, "app.doJavaScript(" + embeddedText(scripts::pageReader) +
                                ", {in: app.windows[0].currentTab})"),
              "{\"url\":\"x\"}\n");
}

/// A process that is a browser by its name, without any host.
class UnconnectedBrowser {
public:
    UnconnectedBrowser() {
        const std::string program = folder_.path("vivaldi-bin");
        std::filesystem::copy_file("/bin/sleep", program);
        child_.emplace(ChildOptions{{program, "600"}, {}, true});
        const std::string arguments = "/proc/" + std::to_string(child_->process()) + "/cmdline";
        EXPECT_TRUE(eventually([&] { return std::ifstream(arguments).peek() != EOF; }));
    }

private:
    ScratchFolder folder_;
    std::optional<ChildProcess> child_;
};

TEST_F(Tool, isNotAuthorizedWhereABrowserRunsThatNobodyLetItInto) {
    const UnconnectedBrowser vivaldi;
    EXPECT_EQ(value("com.vivaldi.Vivaldi", "app.running()"), "true\n");
    const auto result = evaluate("com.vivaldi.Vivaldi", "app.windows.length");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("not authorized"));
    EXPECT_THAT(result.errors, HasSubstr("-1743"));
    EXPECT_EQ(errorNumber("com.vivaldi.Vivaldi", "app.activate()"), "-1743\n");
}

TEST_F(Tool, isNotAuthorizedWhereADeadHostLeftItsSocket) {
    const UnconnectedBrowser vivaldi;
    std::filesystem::create_directory(runtime.path("brinmoor"));
    std::ofstream(runtime.path("brinmoor/com.vivaldi.Vivaldi-12-0123456789abcdef"));
    EXPECT_EQ(errorNumber("com.vivaldi.Vivaldi", "app.windows()"), "-1743\n");
}

void expectPlainFailure(const ProcessResult& result) {
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("execution error: Error: "));
    EXPECT_THAT(result.errors, Not(HasSubstr("1743")));
    EXPECT_THAT(result.errors, Not(HasSubstr("not authorized")));
}

TEST_F(Tool, failsWhenAHostIsConnectedAndSilent) {
    // The numbers of the browser hold those of a refusal, which must not show.
    SimulatedBrowser browser(runtime.path(), {.process = 1743, .silent = true}, windows);
    expectPlainFailure(evaluate(chromium, "app.windows.length"));
}

TEST_F(Tool, failsWhenAnExtensionSpeaksAnotherVersion) {
    SimulatedBrowser browser(runtime.path(), {.protocol = 2}, windows);
    const auto result = evaluate(chromium, "app.windows.length");
    expectPlainFailure(result);
    EXPECT_THAT(result.errors, HasSubstr("version"));
}

class BadAnswer : public Tool, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadAnswer, isAFailure) {
    SimulatedBrowser browser(runtime.path(), {}, windows);
    browser.otherAnswer = [](const std::string&) { return GetParam(); };
    expectPlainFailure(evaluate(chromium, "app.windows.length"));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BadAnswer,
    ::testing::Values("end", "{", "[]", "null", R"({"id":1,"protocol":1})",
                      R"({"id":9,"protocol":1,"result":{"windows":[]}})",
                      R"({"id":1,"protocol":1,"result":{}})",
                      R"({"id":1,"protocol":1,"result":{"windows":[{"id":1}]}})",
                      R"({"id":1,"protocol":1,"error":{"code":"toString"}})",
                      R"({"id":1,"protocol":1,"error":{"code":"1743"}})"));

TEST_F(Tool, showsSeveralProfilesAsOneApplicationInTheOrderOfTheirFocus) {
    const auto window = [](int id, std::int64_t time, bool minimized = false) {
        return SimulatedWindow{
            id,    {{id * 10, "https://w" + std::to_string(id) + ".example/", ""}},
            0,     minimized,
            false, time};
    };
    SimulatedBrowser one(runtime.path(), {.profile = "00000000000000aa"},
                         {window(1, 500), window(2, 100), window(3, 900, true)});
    SimulatedBrowser two(runtime.path(), {.profile = "00000000000000bb"},
                         {window(1, 300), window(5, 50)});
    EXPECT_EQ(value(chromium, "app.windows.id()"),
              "[\"1.4711.00000000000000aa\",\"1.4711.00000000000000bb\","
              "\"2.4711.00000000000000aa\",\"5.4711.00000000000000bb\","
              "\"3.4711.00000000000000aa\"]\n");
    (void)value(chromium, "(() => { app.windows()[1].tabs[0].close(); })()");
    EXPECT_EQ(one.windows()[0].tabs.size(), 1U);
    EXPECT_EQ(two.windows()[0].tabs.size(), 0U);
}

TEST_F(Tool, goesOnWithTheOtherProfilesWhenOneIsClosedMeanwhile) {
    SimulatedBrowser one(runtime.path(), {.profile = "00000000000000aa"}, windows);
    SimulatedBrowser two(runtime.path(), {.profile = "00000000000000bb"}, {windows[1]});
    one.otherAnswer = [](const std::string&) { return "end"; };
    EXPECT_EQ(value(chromium, "app.windows.length"), "1\n");
}

TEST_F(Tool, passesTextThroughUnharmed) {
    windows[0].tabs[1].title = "ü \"quoted\" \\ 日本 😀 </script> ${x}";
    SimulatedBrowser browser(runtime.path(), {}, windows);
    EXPECT_EQ(value(chromium, "app.windows[0].activeTab().title()"),
              windows[0].tabs[1].title + "\n");
}

} // namespace
} // namespace brinmoor::testing

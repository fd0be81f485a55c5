#include "tests/bridge/ScriptRunning.h"
#include "tests/bridge/SimulatedBrowser.h"

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

const std::string pageOfB = R"({"url":"https://b.example/","pageTitle":"Page of B"})";

/// The same promises for both dialects.
class Scripts : public ::testing::TestWithParam<bool> {
protected:
    [[nodiscard]] bool safari() const { return GetParam(); }
    [[nodiscard]] std::string browserID() const {
        return safari() ? "com.apple.SafariTechnologyPreview" : "org.chromium.Chromium";
    }
    [[nodiscard]] SimulatedBrowser::Options options() const {
        SimulatedBrowser::Options given;
        given.browserID = browserID();
        return given;
    }
    [[nodiscard]] CaptureParameters parameters(bool allTabs, bool prepareClose) const {
        return {browserID(), safari(), allTabs, prepareClose, 4711};
    }
    [[nodiscard]] ProcessResult run(const std::string& script) const {
        return runTool(script, {{"XDG_RUNTIME_DIR", runtime.path()}});
    }
    [[nodiscard]] std::string captured(bool allTabs = false, bool prepareClose = false) const {
        const auto result = run(captureScriptFor(parameters(allTabs, prepareClose)));
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.output;
    }
    /// The close target of the front tab, as JSON.
    [[nodiscard]] std::string target() const {
        return Entries(captured(false, true)).json(0, "/closeTarget");
    }
    [[nodiscard]] std::string closed(const std::string& closeTarget) const {
        const auto result = run(closeScriptFor(browserID(), closeTarget));
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.output;
    }
    [[nodiscard]] static std::size_t tabCount(const SimulatedBrowser& browser) {
        std::size_t count = 0;
        for (const auto& window : browser.windows())
            count += window.tabs.size();
        return count;
    }

    ScratchFolder runtime;
    std::vector<SimulatedWindow> windows{
        {10,
         {{1, "https://a.example/", "A", R"({"url":"https://a.example/","pageTitle":"PA"})"},
          {2, "https://b.example/", "B", pageOfB},
          {3, "chrome://settings/", "Settings"}},
         1},
        {20, {{4, "https://d.example/", "D"}}}};
};

INSTANTIATE_TEST_SUITE_P(Dialects, Scripts, ::testing::Bool(),
                         [](const auto& dialect) { return dialect.param ? "safari" : "chromium"; });

TEST_P(Scripts, captureTheFrontTabOfTheFrontWindow) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const Entries entries(captured());
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.text(0, "/url"), "https://b.example/");
    EXPECT_EQ(entries.text(0, "/title"), "B");
    EXPECT_EQ(entries.json(0, "/metadata"), pageOfB);
    EXPECT_FALSE(entries.has(0, "/closeTarget"));
    EXPECT_THAT(browser.takeRequests(), ::testing::ElementsAre("windows", "readPage"));
}

TEST_P(Scripts, giveTheIdentityOfTheCapturedTab) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const std::string mark = ".4711.00000000000000aa";
    EXPECT_EQ(target(),
              "{\"windowID\":\"10" + mark + "\",\"index\":" + (safari() ? "1" : "-1") +
                  ",\"tabID\":" + (safari() ? "null" : "\"2" + mark + "\"") +
                  ",\"url\":\"https://b.example/\",\"safari\":" + (safari() ? "true" : "false") +
                  ",\"browserID\":\"" + browserID() + "\",\"processID\":4711}");
}

TEST_P(Scripts, captureNothingWithoutAWindow) {
    SimulatedBrowser browser(runtime.path(), options(), {});
    EXPECT_EQ(captured(), "[]\n");
}

TEST_P(Scripts, captureNothingOfABrowserThatDoesNotRun) {
    // Whether a real Chromium runs beside this test isn't known, so an identifier without one.
    const auto script = captureScriptFor(
        {safari() ? "com.apple.Safari" : "company.thebrowser.Browser", safari(), false, false});
    const auto result = run(script);
    EXPECT_EQ(result.output, "[]\n");
    EXPECT_EQ(result.status, 0);
}

TEST_P(Scripts, captureAnEmptyTabWithoutReadingIt) {
    SimulatedBrowser browser(runtime.path(), options(), {{10, {{1, "about:blank", ""}}}});
    const Entries entries(captured(false, true));
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.text(0, "/url"), "about:blank");
    EXPECT_EQ(entries.json(0, "/metadata"), "{}");
    EXPECT_FALSE(entries.has(0, "/closeTarget"));
    EXPECT_THAT(browser.takeRequests(), ::testing::ElementsAre("windows"));
}

TEST_P(Scripts, captureAllTabsOfTheFrontWindowWithoutTargets) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const Entries entries(captured(true));
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries.text(0, "/metadata/pageTitle"), "PA");
    EXPECT_EQ(entries.text(1, "/metadata/pageTitle"), "Page of B");
    EXPECT_EQ(entries.text(2, "/url"), "chrome://settings/");
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_FALSE(entries.has(i, "/closeTarget"));
}

TEST_P(Scripts, keepTheOtherTabsWhenAPageCannotBeRead) {
    windows[0].tabs[0].pageText.reset();
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const Entries entries(captured(true));
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries.text(0, "/title"), "A");
    EXPECT_EQ(entries.json(0, "/metadata"), "{}");
    EXPECT_EQ(entries.text(1, "/metadata/pageTitle"), "Page of B");
}

TEST_P(Scripts, dropATabThatFailsWhileItIsRead) {
    // A title that isn't there as a function is what a broken tab comes down to.
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const std::string breaking =
        "const made = Application; Application = id => { const app = made(id); const first = "
        "app.windows[0]; const all = first.tabs(); all[0].url = () => { throw new Error('gone'); "
        "}; return { running: () => true, doJavaScript: app.doJavaScript, windows: [{ id: () => "
        "first.id(), tabs: () => all }] }; };\n";
    const auto result = run(breaking + captureScriptFor(parameters(true, false)));
    const Entries entries(result.output);
    ASSERT_EQ(entries.size(), 2U) << result.errors;
    EXPECT_EQ(entries.text(0, "/url"), "https://b.example/");
}

TEST_P(Scripts, attachNoOtherPagesTitle) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    browser.beforeRequest = [](const std::string& request, auto& all) {
        if (request == "readPage")
            all[0].tabs[1] = {2, "https://new.example/", "New",
                              R"({"url":"https://new.example/","pageTitle":"New"})"};
    };
    const Entries entries(captured());
    EXPECT_EQ(entries.text(0, "/url"), "https://b.example/");
    EXPECT_EQ(entries.text(0, "/title"), "B");
    EXPECT_EQ(entries.json(0, "/metadata"), "{}");
}

TEST_P(Scripts, takeAReaderThatGivesNoJsonForNone) {
    for (const char* text : {"", "no JSON", "null", "7"}) {
        windows[0].tabs[1].pageText = text;
        SimulatedBrowser browser(runtime.path(), options(), windows);
        EXPECT_EQ(Entries(captured()).json(0, "/metadata"), "{}") << text;
    }
}

TEST_P(Scripts, failAsAWholeWhereAccessIsRefused) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    browser.otherAnswer = [](const std::string&) { return "end"; };
    const auto result = run(captureScriptFor(parameters(false, false)));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
}

TEST_P(Scripts, closeTheCapturedTab) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    EXPECT_EQ(closed(target()), "true\n");
    EXPECT_EQ(browser.windows()[0].tabs[1].url, "chrome://settings/");
    EXPECT_EQ(tabCount(browser), 3U);
}

TEST_P(Scripts, readTheAddressOnceMoreBeforeTheClose) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const std::string captured = target();
    (void)browser.takeRequests();
    EXPECT_EQ(closed(captured), "true\n");
    EXPECT_THAT(browser.takeRequests(), ::testing::ElementsAre("windows", "tab", "closeTab"));
}

TEST_P(Scripts, closeAReloadedTab) {
    SimulatedBrowser browser(runtime.path(), options(), windows);
    const std::string captured = target();
    browser.change([](auto& all) { all[0].tabs[1].title = "Loaded again"; });
    EXPECT_EQ(closed(captured), "true\n");
}

struct Move {
    const char* name;
    std::function<void(std::vector<SimulatedWindow>&)> work;
    bool closesInChromium;
    bool closesInSafari;
};

const std::vector<Move>& moves() {
    static const std::vector<Move> cases{
        {"moved within its window", [](auto& all) { std::swap(all[0].tabs[1], all[0].tabs[2]); },
         true, false},
        {"moved to another window",
         [](auto& all) {
             all[1].tabs.push_back(all[0].tabs[1]);
             all[0].tabs.erase(all[0].tabs.begin() + 1);
         },
         false, false},
        {"gone elsewhere", [](auto& all) { all[0].tabs[1].url = "https://elsewhere.example/"; },
         false, false},
        {"closed by hand", [](auto& all) { all[0].tabs.erase(all[0].tabs.begin() + 1); }, false,
         false},
        {"open a second time at the end",
         [](auto& all) {
             all[0].tabs.push_back({9, "https://b.example/", "B"});
         },
         true, false},
        {"replaced by a twin at its place", [](auto& all) { all[0].tabs[1].id = 99; }, false, true},
        {"in a window that is gone", [](auto& all) { all.erase(all.begin()); }, false, false},
        {"in a window behind another", [](auto& all) { std::swap(all[0], all[1]); }, true, true},
    };
    return cases;
}

TEST_P(Scripts, closeOnlyWhatIsProvablyTheSame) {
    for (const Move& move : moves()) {
        SCOPED_TRACE(move.name);
        SimulatedBrowser browser(runtime.path(), options(), windows);
        const std::string captured = target();
        browser.change(move.work);
        const std::size_t before = tabCount(browser);
        const bool closes = safari() ? move.closesInSafari : move.closesInChromium;
        EXPECT_EQ(closed(captured), closes ? "true\n" : "false\n");
        EXPECT_EQ(tabCount(browser), closes ? before - 1 : before);
    }
}

TEST_P(Scripts, leaveATabThatChangesAtTheLastMoment) {
    for (const std::string moment : {"tab", "closeTab"}) {
        SimulatedBrowser browser(runtime.path(), options(), windows);
        const std::string captured = target();
        browser.beforeRequest = [moment](const std::string& request, auto& all) {
            if (request == moment)
                all[0].tabs[1].url = "https://elsewhere.example/";
        };
        EXPECT_EQ(closed(captured), "false\n") << moment;
        EXPECT_EQ(tabCount(browser), 4U);
    }
}

TEST_P(Scripts, closeNothingOfABrowserThatDoesNotRun) {
    std::string captured;
    {
        SimulatedBrowser browser(runtime.path(), options(), windows);
        captured = target();
    }
    EXPECT_EQ(
        run(closeScriptFor(safari() ? "com.apple.Safari" : "company.thebrowser.Browser", captured))
            .output,
        "false\n");
}

TEST_P(Scripts, closeNothingOfABrowserThatWasRestarted) {
    std::string captured;
    {
        SimulatedBrowser browser(runtime.path(), options(), windows);
        captured = target();
    }
    auto restarted = options();
    restarted.process = 4712;
    SimulatedBrowser browser(runtime.path(), restarted, windows);
    EXPECT_EQ(closed(captured), "false\n");
}

TEST(SafariScripts, giveNoTargetForAnAddressThatStandsTwice) {
    const ScratchFolder runtime;
    SimulatedBrowser browser(
        runtime.path(), {.browserID = "com.apple.Safari"},
        {{10, {{1, "https://b.example/", "B"}, {2, "https://b.example/", "B", pageOfB}}, 1}});
    const auto result = runTool(captureScriptFor({"com.apple.Safari", true, false, true}),
                                {{"XDG_RUNTIME_DIR", runtime.path()}});
    const Entries entries(result.output);
    EXPECT_EQ(entries.text(0, "/metadata/pageTitle"), "Page of B");
    EXPECT_FALSE(entries.has(0, "/closeTarget"));
}

} // namespace
} // namespace brinmoor::testing

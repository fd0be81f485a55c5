#include "browser/TabSearchModel.h"

#include "platform/memory/MemoryWorkspace.h"
#include "tests/support/CannedScripts.h"
#include "tests/support/TabRecords.h"
#include "tests/support/Waiting.h"

#include <QPromise>

#include <gmock/gmock.h>

#include <limits>
#include <map>
#include <memory>

namespace brinmoor {
namespace {

using testing::CannedScripts;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::isFor;
using testing::PretendedTab;
using testing::settle;
using testing::tabList;

constexpr auto chromeID = "com.google.Chrome";
constexpr auto braveID = "com.brave.Browser";
constexpr auto safariID = "com.apple.Safari";

class TabSearchModelTest : public ::testing::Test {
protected:
    TabSearchModelTest() {
        scripts.answer = [this](const ScriptRun& run) { return answerTo(run); };
        QObject::connect(model.get(), &TabSearchModel::loadingChanged, model.get(),
                         [this] { loadings.push_back(model->loading()); });
    }

    void runBrowsers(const std::vector<const char*>& ids) {
        workspace.running.clear();
        for (const char* id : ids)
            workspace.running.push_back(
                {.bundleIdentifier = id,
                 .localizedName = {},
                 .processIdentifier = static_cast<int>(workspace.running.size() + 1)});
    }

    CannedScripts::Answer answerTo(const ScriptRun& run) {
        if (run.script.find("activateBrowserTab(Application(") != std::string::npos)
            return activation;
        for (const auto& [id, answer] : readings)
            if (isFor(run, id))
                return *answer;
        return CannedScripts::Answer(QByteArray("[]"));
    }

    static CannedScripts::Answer failed() {
        return failure(CaptureFailure(CaptureError{CaptureError::Cause::failed, "no answer"}));
    }

    void refresh() {
        model->refresh();
        settle();
    }
    /// A reading that found these pages in Chrome.
    void given(const std::vector<PretendedTab>& tabs) {
        runBrowsers({chromeID});
        readings[chromeID] = tabList(chromeID, tabs);
        refresh();
    }
    void givenTitles(const std::vector<std::string>& titles) {
        std::vector<PretendedTab> tabs;
        for (const std::string& title : titles)
            tabs.push_back({"https://x.test/", title, 1, static_cast<int>(tabs.size()) + 1});
        given(tabs);
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> found;
        for (const auto& tab : model->results())
            found.push_back(tab.title);
        return found;
    }
    std::string message() const { return model->message().value_or("(none)"); }

    MemoryWorkspace workspace;
    CannedScripts scripts;
    std::map<std::string, std::optional<CannedScripts::Answer>> readings;
    CannedScripts::Answer activation = QByteArray("true\n");
    std::unique_ptr<TabSearchModel> model = std::make_unique<TabSearchModel>(workspace, scripts);
    std::vector<bool> loadings;
};

// Reading.

TEST_F(TabSearchModelTest, visitsTheRunningBrowsersInTheCataloguesOrder) {
    runBrowsers({braveID, "org.mozilla.firefox", safariID, chromeID});
    workspace.running.push_back({.bundleIdentifier = {}, .localizedName = {}});
    refresh();
    ASSERT_EQ(scripts.runs.size(), 3U);
    EXPECT_TRUE(isFor(scripts.runs[0], safariID));
    EXPECT_TRUE(isFor(scripts.runs[1], chromeID));
    EXPECT_TRUE(isFor(scripts.runs[2], braveID));
    for (const ScriptRun& run : scripts.runs)
        EXPECT_EQ(run.kind, ScriptRun::Kind::operation);
}

TEST_F(TabSearchModelTest, readsOneBrowserAfterTheOtherAndShowsEachAtOnce) {
    runBrowsers({chromeID, braveID});
    readings[chromeID] = tabList(chromeID, {{"https://a.test/", "A"}});
    readings[braveID] = tabList(braveID, {{"https://b.test/", "B"}});
    scripts.hold = CannedScripts::Hold::everything;
    refresh();
    EXPECT_EQ(scripts.runs.size(), 1U);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_TRUE(model->loading());
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 2U);
    EXPECT_THAT(titles(), ElementsAre("A"));
    EXPECT_TRUE(model->loading());
    scripts.release();
    settle();
    EXPECT_THAT(titles(), ElementsAre("A", "B"));
    EXPECT_FALSE(model->loading());
    EXPECT_EQ(message(), "(none)");
}

TEST_F(TabSearchModelTest, keepsTheOldListUntilTheFirstBrowserHasAnswered) {
    givenTitles({"Old"});
    scripts.hold = CannedScripts::Hold::everything;
    readings[chromeID] = tabList(chromeID, {{"https://a.test/", "New"}});
    refresh();
    EXPECT_THAT(titles(), ElementsAre("Old"));
    scripts.release();
    settle();
    EXPECT_THAT(titles(), ElementsAre("New"));
}

TEST_F(TabSearchModelTest, aSecondReadingOvertakesTheFirst) {
    runBrowsers({chromeID, braveID});
    scripts.hold = CannedScripts::Hold::everything;
    refresh();
    refresh();
    EXPECT_EQ(scripts.runs.size(), 2U);
    loadings.clear();
    readings[chromeID] = tabList(chromeID, {{"https://a.test/", "A"}});
    // Both readings' first scripts end; the first reading goes no further.
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 3U);
    EXPECT_THAT(titles(), ElementsAre("A"));
    EXPECT_TRUE(model->loading());
    scripts.release();
    settle();
    EXPECT_THAT(loadings, ElementsAre(false));
    EXPECT_THAT(titles(), ElementsAre("A"));
}

TEST_F(TabSearchModelTest, anOvertakenReadingThatEndsLateChangesNothing) {
    runBrowsers({chromeID});
    scripts.hold = CannedScripts::Hold::everything;
    refresh();
    workspace.running.clear();
    refresh();
    EXPECT_EQ(message(), "Open Safari or a supported Chromium browser to search its tabs.");
    readings[chromeID] = failed();
    scripts.release();
    settle();
    EXPECT_EQ(message(), "Open Safari or a supported Chromium browser to search its tabs.");
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_FALSE(model->loading());
}

TEST_F(TabSearchModelTest, saysWhenNoBrowserRuns) {
    givenTitles({"Old"});
    workspace.running.clear();
    refresh();
    EXPECT_EQ(message(), "Open Safari or a supported Chromium browser to search its tabs.");
    EXPECT_THAT(model->tabs(), IsEmpty());
    EXPECT_FALSE(model->loading());
}

TEST_F(TabSearchModelTest, aBrowserThatEndsDoesNotRun) {
    runBrowsers({chromeID});
    workspace.running[0].isTerminated = true;
    refresh();
    EXPECT_THAT(scripts.runs, IsEmpty());
}

TEST_F(TabSearchModelTest, aBrowserWithoutTabsIsNoFailure) {
    given({});
    EXPECT_EQ(message(), "(none)");
    EXPECT_FALSE(model->loading());
}

TEST_F(TabSearchModelTest, oneBrowsersFailureLeavesTheOthersTabs) {
    runBrowsers({safariID, chromeID, braveID});
    readings[safariID] = failed();
    readings[chromeID] = tabList(chromeID, {{"https://a.test/", "A"}});
    readings[braveID] = CannedScripts::Answer(QByteArray("no list"));
    refresh();
    EXPECT_THAT(titles(), ElementsAre("A"));
    EXPECT_EQ(message(),
              "Couldn’t read Safari, Brave. Check Automation access in Settings, then refresh.");
}

TEST_F(TabSearchModelTest, oneFailureIsNamedAlone) {
    runBrowsers({chromeID});
    readings[chromeID] = failure(CaptureFailure(OtherFailure{"can't be started"}));
    refresh();
    EXPECT_EQ(message(),
              "Couldn’t read Chrome. Check Automation access in Settings, then refresh.");
    readings[chromeID] = tabList(chromeID, {});
    refresh();
    EXPECT_EQ(message(), "(none)");
}

TEST_F(TabSearchModelTest, aModelThatGoesLeavesItsScriptBehind) {
    runBrowsers({chromeID, braveID});
    scripts.hold = CannedScripts::Hold::everything;
    refresh();
    model.reset();
    scripts.release();
    settle();
    EXPECT_EQ(scripts.runs.size(), 1U);
}

// The list.

TEST_F(TabSearchModelTest, theQueryFiltersAndRanks) {
    givenTitles({"All the news", "News", "Weather"});
    model->setQuery("news");
    EXPECT_THAT(titles(), ElementsAre("News", "All the news"));
    model->setQuery("chrome weather");
    EXPECT_THAT(titles(), ElementsAre("Weather"));
    EXPECT_EQ(model->tabs().size(), 3U);
}

TEST_F(TabSearchModelTest, theSelectionStaysWithinTheResults) {
    givenTitles({"1", "2", "3", "4", "5"});
    model->move(-1);
    EXPECT_EQ(model->selectedIndex(), 0);
    model->move(4);
    EXPECT_EQ(model->selectedIndex(), 4);
    model->move(1);
    EXPECT_EQ(model->selectedIndex(), 4);
    model->move(std::numeric_limits<int>::max());
    EXPECT_EQ(model->selectedIndex(), 4);
    model->move(-2);
    EXPECT_EQ(model->selectedIndex(), 2);
    model->move(std::numeric_limits<int>::min());
    EXPECT_EQ(model->selectedIndex(), 0);
}

TEST_F(TabSearchModelTest, withoutResultsTheSelectionIsTheFirst) {
    givenTitles({"1", "2"});
    model->move(1);
    model->setQuery("nowhere");
    EXPECT_EQ(model->selectedIndex(), 0);
    model->move(1);
    EXPECT_EQ(model->selectedIndex(), 0);
}

TEST_F(TabSearchModelTest, typingSelectsTheBestMatch) {
    givenTitles({"1", "12", "123"});
    model->move(2);
    model->setQuery("1");
    EXPECT_EQ(model->selectedIndex(), 0);
}

TEST_F(TabSearchModelTest, aNewReadingSelectsTheFirstRow) {
    givenTitles({"1", "2", "3"});
    model->move(2);
    scripts.hold = CannedScripts::Hold::everything;
    refresh();
    EXPECT_EQ(model->selectedIndex(), 0);
    model->move(2);
    readings[chromeID] = tabList(chromeID, {{"https://a.test/"}, {"https://b.test/"}});
    scripts.release();
    settle();
    EXPECT_EQ(model->selectedIndex(), 1);
}

TEST_F(TabSearchModelTest, tellsEachChangeOnce) {
    int tabs = 0;
    int selected = 0;
    QObject::connect(model.get(), &TabSearchModel::tabsChanged, model.get(), [&] { ++tabs; });
    QObject::connect(model.get(), &TabSearchModel::selectedIndexChanged, model.get(),
                     [&] { ++selected; });
    givenTitles({"1", "2"});
    EXPECT_EQ(tabs, 1);
    refresh();
    EXPECT_EQ(tabs, 1);
    EXPECT_EQ(selected, 0);
    model->move(1);
    model->move(1);
    EXPECT_EQ(selected, 1);
    EXPECT_THAT(loadings, ElementsAre(true, false, true, false));
}

// Switching.

TEST_F(TabSearchModelTest, closesThePanelOnceTheTabIsInFront) {
    givenTitles({"1"});
    int closed = 0;
    model->close = [&] {
        EXPECT_TRUE(model->switching());
        ++closed;
    };
    scripts.hold = CannedScripts::Hold::everything;
    model->activate(model->results().at(0));
    settle();
    EXPECT_TRUE(model->switching());
    EXPECT_EQ(closed, 0);
    scripts.release();
    settle();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(model->switching());
    EXPECT_EQ(message(), "(none)");
}

TEST_F(TabSearchModelTest, switchesWithoutAPanel) {
    givenTitles({"1"});
    model->activate(model->results().at(0));
    settle();
    EXPECT_FALSE(model->switching());
}

TEST_F(TabSearchModelTest, saysWhenTheTabIsGoneAndStaysOpen) {
    givenTitles({"1"});
    model->close = [] { ADD_FAILURE(); };
    for (const char* output : {"false\n", "", "true true", "TRUE"}) {
        activation = QByteArray(output);
        model->activate(model->results().at(0));
        settle();
        EXPECT_EQ(message(), "That tab moved or closed. Refresh to see what’s open now.");
        EXPECT_FALSE(model->switching());
    }
    EXPECT_THAT(titles(), ElementsAre("1"));
}

TEST_F(TabSearchModelTest, saysWhenTheBrowserFailsToSwitch) {
    givenTitles({"1"});
    model->close = [] { ADD_FAILURE(); };
    activation = failed();
    model->activate(model->results().at(0));
    settle();
    EXPECT_EQ(message(), "Couldn’t switch tabs. Check browser Automation access and try again.");
    EXPECT_FALSE(model->switching());
}

TEST_F(TabSearchModelTest, switchesToOneTabAtATime) {
    givenTitles({"1", "2"});
    scripts.hold = CannedScripts::Hold::everything;
    const auto before = scripts.runs.size();
    model->activate(model->results().at(0));
    model->activate(model->results().at(1));
    settle();
    EXPECT_EQ(scripts.runs.size(), before + 1);
    scripts.release();
    settle();
    model->activate(model->results().at(1));
    settle();
    EXPECT_EQ(scripts.runs.size(), before + 2);
    scripts.release();
    settle();
}

TEST_F(TabSearchModelTest, speaksToBrowsersOfTheCatalogueOnly) {
    givenTitles({"1"});
    auto tab = model->results().at(0);
    tab.browserID = "com.google.Chrome'); evil('";
    const auto before = scripts.runs.size();
    model->activate(tab);
    settle();
    EXPECT_EQ(scripts.runs.size(), before);
    EXPECT_FALSE(model->switching());
}

TEST_F(TabSearchModelTest, saysThatATabWentThoughTheListIsReadAnewMeanwhile) {
    givenTitles({"1"});
    activation = QByteArray("false\n");
    scripts.hold = CannedScripts::Hold::everything;
    model->activate(model->results().at(0));
    refresh();
    scripts.release();
    settle();
    EXPECT_EQ(message(), "That tab moved or closed. Refresh to see what’s open now.");
    EXPECT_FALSE(model->switching());
    EXPECT_FALSE(model->loading());
}

TEST_F(TabSearchModelTest, aPanelThatIsDestroyedWhileSwitchingIsNoHarm) {
    givenTitles({"1"});
    model->close = [this] { model.reset(); };
    model->activate(model->results().at(0));
    settle();
    EXPECT_EQ(model, nullptr);
}

TEST_F(TabSearchModelTest, aModelThatGoesWhileSwitchingClosesNothing) {
    givenTitles({"1"});
    model->close = [] { ADD_FAILURE(); };
    scripts.hold = CannedScripts::Hold::everything;
    model->activate(model->results().at(0));
    model.reset();
    scripts.release();
    settle();
}

// Saving.

class SavingFromTheSearch : public TabSearchModelTest {
protected:
    SavingFromTheSearch() {
        givenTitles({"1", "2"});
        model->save = [this](OpenBrowserTab tab) -> QCoro::Task<bool> {
            saved.push_back(tab.title);
            QPromise<bool> promise;
            promise.start();
            const QFuture<bool> future = promise.future();
            pending.push_back(std::move(promise));
            const bool result = co_await future;
            co_return result;
        };
    }
    void end(bool result) {
        pending.back().addResult(result);
        pending.back().finish();
        pending.pop_back();
        settle();
    }
    std::vector<std::string> saved;
    std::vector<QPromise<bool>> pending;
};

TEST_F(SavingFromTheSearch, tellsHowItWent) {
    model->saveTab(model->results().at(1));
    EXPECT_TRUE(model->saving());
    EXPECT_EQ(message(), "(none)");
    end(true);
    EXPECT_EQ(message(), "Saved to your library.");
    EXPECT_FALSE(model->saving());
    model->saveTab(model->results().at(0));
    end(false);
    EXPECT_EQ(message(), "Couldn’t save this tab. Check the Brinmoor notification for details.");
    EXPECT_FALSE(model->saving());
    EXPECT_THAT(saved, ElementsAre("2", "1"));
}

TEST_F(SavingFromTheSearch, savesOneTabAtATime) {
    model->saveTab(model->results().at(0));
    model->saveTab(model->results().at(1));
    EXPECT_THAT(saved, ElementsAre("1"));
    end(true);
}

TEST_F(SavingFromTheSearch, needsSomebodyWhoSaves) {
    model->save = nullptr;
    model->saveTab(model->results().at(0));
    EXPECT_FALSE(model->saving());
}

TEST_F(SavingFromTheSearch, aModelThatGoesMeanwhileIsNoHarm) {
    model->saveTab(model->results().at(0));
    model.reset();
    end(true);
}

} // namespace
} // namespace brinmoor

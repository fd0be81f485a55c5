#include "app/AppDelegate.h"

#include "tests/app/Desk.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using testing::Desk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::settle;

/// A window that only takes down what happens to it.
class PaperPanel final : public Panel {
public:
    PaperPanel(std::string named, std::vector<std::string>& log, std::vector<PaperPanel*>& alive)
        : title(std::move(named)), log_(log), alive_(alive) {
        alive_.push_back(this);
    }
    ~PaperPanel() override { std::erase(alive_, this); }

    void makeKeyAndOrderFront() override {
        visible = true;
        ++keyed;
        log_.push_back("key " + title);
    }
    void orderFrontRegardless() override {
        visible = true;
        log_.push_back("front " + title);
    }
    void orderOut() override { visible = false; }
    [[nodiscard]] bool isVisible() const override { return visible; }
    [[nodiscard]] PanelSize size() const override { return {380, 80}; }
    void setOrigin(PanelPoint at) override { origin = at; }
    void center() override { ++centered; }

    std::string title;
    bool visible = false;
    int keyed = 0;
    int centered = 0;
    std::optional<PanelPoint> origin;

private:
    std::vector<std::string>& log_;
    std::vector<PaperPanel*>& alive_;
};

class PaperPanels final : public Panels {
public:
    std::unique_ptr<Panel> libraryWindow(AppModel&) override { return make("library"); }
    std::unique_ptr<Panel> captureEditor(AppModel&, const CaptureDraft&,
                                         const std::string& title) override {
        return make(title);
    }
    std::unique_ptr<Panel> tabSelection(AppModel&, Uuid, const std::string& title) override {
        return make(title);
    }
    std::unique_ptr<Panel> tabSearch(AppModel&) override { return make("tab search"); }
    std::unique_ptr<Panel> notice(const CaptureNotice& notice, NoticeActions given) override {
        actions = std::move(given);
        return make(notice.title);
    }
    [[nodiscard]] std::vector<PanelScreen> screens() const override { return screenList; }
    [[nodiscard]] PanelPoint pointer() const override { return pointerAt; }
    [[nodiscard]] bool applicationIsActive() const override { return active; }
    void announce(Panel&, const std::string& text) override { announced.push_back(text); }
    void setAppearance(AppAppearance appearance) override {
        log.push_back(appearance == AppAppearance::cream ? "cream" : "black");
    }

    [[nodiscard]] PaperPanel* named(const std::string& title) const {
        const auto found = std::ranges::find(alive, title, &PaperPanel::title);
        return found == alive.end() ? nullptr : *found;
    }
    [[nodiscard]] long count(const std::string& title) const {
        return std::ranges::count(alive, title, &PaperPanel::title);
    }

    std::vector<std::string> log;
    std::vector<PaperPanel*> alive;
    std::vector<PanelScreen> screenList{
        {.frame = {{0, 0}, {1000, 800}}, .visibleFrame = {{0, 30}, {1000, 770}}},
        {.frame = {{1000, 0}, {1600, 900}}, .visibleFrame = {{1000, 0}, {1500, 900}}}};
    PanelPoint pointerAt{10, 10};
    bool active = true;
    std::vector<std::string> announced;
    NoticeActions actions;

private:
    std::unique_ptr<Panel> make(std::string title) {
        log.push_back("make " + title);
        return std::make_unique<PaperPanel>(std::move(title), log, alive);
    }
};

class AppDelegateTest : public Desk {
protected:
    AppDelegate& shell() {
        if (!shell_) {
            shell_ = std::make_unique<AppDelegate>(parts(), panels);
            shell_->launch();
        }
        return *shell_;
    }
    void endShell() { shell_.reset(); }
    AppModel& shellModel() { return *shell().model(); }
    void pressIn(CaptureAction action) {
        shellModel().capture(action);
        settle();
    }
    void notice(const std::string& title, bool isError = false) {
        shellModel().notify({.id = clock.newUuid(),
                             .title = title,
                             .message = "Message.",
                             .isError = isError,
                             .clipboardURL = {}});
        settle();
    }

    PaperPanels panels;

private:
    std::unique_ptr<AppDelegate> shell_;
};

// The launch.

TEST_F(AppDelegateTest, theAppearanceComesBeforeAnyWindow) {
    preferences.values["appAppearance"] = std::string("cream");
    shell();
    EXPECT_THAT(panels.log, ElementsAre("cream", "make library", "key library"));
}

TEST_F(AppDelegateTest, anUnknownAppearanceIsTheDarkOne) {
    preferences.values["appAppearance"] = std::string("neon");
    shell();
    EXPECT_EQ(panels.log.front(), "black");
}

TEST_F(AppDelegateTest, aNewAppearanceIsInForceAtOnce) {
    shell();
    preferences.set("appAppearance", std::string("cream"));
    EXPECT_EQ(panels.log.back(), "cream");
    preferences.set("appAppearance", std::string("black"));
    EXPECT_EQ(panels.log.back(), "black");
}

TEST_F(AppDelegateTest, aShortcutThatFailedAtStartOpensTheSettings) {
    const auto quick = defaultShortcut(CaptureAction::quick);
    hotKeys.refused.insert({quick.keyCode, quick.modifiers});
    EXPECT_EQ(shellModel().section(), AppSection::settings);
    EXPECT_EQ(panels.named("library")->keyed, 2);
}

TEST_F(AppDelegateTest, withEveryShortcutRegisteredTheLibraryStays) {
    EXPECT_EQ(shellModel().section(), AppSection::library);
}

TEST_F(AppDelegateTest, theModelsCallbacksReachTheWindows) {
    shellModel().showSettings();
    EXPECT_EQ(shellModel().section(), AppSection::settings);
    shellModel().showLibrary();
    EXPECT_EQ(panels.named("library")->keyed, 3);
}

// The capture editor.

TEST_F(AppDelegateTest, capturingWithANoteTwiceRaisesTheOnePanel) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::note);
    pressIn(CaptureAction::note);
    EXPECT_EQ(panels.count("Save with a note"), 1);
    EXPECT_EQ(panels.named("Save with a note")->keyed, 2);
    EXPECT_EQ(panels.named("Save with a note")->centered, 1);
    EXPECT_EQ(panels.named("library")->keyed, 1);
}

TEST_F(AppDelegateTest, theEditorsTitleNamesTheCommandThatOpenedIt) {
    for (const auto& [action, title] :
         {std::pair(CaptureAction::quick, "Save link"),
          std::pair(CaptureAction::note, "Save with a note"),
          std::pair(CaptureAction::selected, "Save selected tabs"),
          std::pair(CaptureAction::window, "Save all tabs in window"),
          std::pair(CaptureAction::search, "Search open tabs"),
          std::pair(CaptureAction::duplicates, "Close duplicate tabs")}) {
        shellModel().beginDraft(link("https://a.example/", "A"), action, {});
        EXPECT_NE(panels.named(title), nullptr) << title;
        shell().captureEditor()->willClose();
        settle();
    }
}

TEST_F(AppDelegateTest, closingTheEditorForgetsItsDraft) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::note);
    shell().captureEditor()->willClose();
    settle();
    EXPECT_EQ(shellModel().draft(), std::nullopt);
    EXPECT_EQ(shell().captureEditor(), nullptr);
    EXPECT_EQ(panels.count("Save with a note"), 0);
    EXPECT_TRUE(shellModel().library().links.empty());
}

TEST_F(AppDelegateTest, aPanelMayBeClosedFromItsOwnButton) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::note);
    PaperPanel* editor = panels.named("Save with a note");
    shell().captureEditor()->willClose();
    EXPECT_EQ(panels.named("Save with a note"), editor) << "gone while its button still runs";
    EXPECT_FALSE(editor->visible);
    settle();
    EXPECT_EQ(panels.named("Save with a note"), nullptr);
}

TEST_F(AppDelegateTest, noPanelOutlivesTheShell) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::note);
    shell().captureEditor()->willClose();
    endShell();
    EXPECT_THAT(panels.alive, IsEmpty());
    settle();
}

// The tab selection.

TEST_F(AppDelegateTest, theSelectionGivesTheFrontBackToTheBrowser) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::selected);
    EXPECT_EQ(panels.named("Save selected tabs")->keyed, 1);
    shell().tabSelectionPanel()->willClose();
    EXPECT_EQ(shellModel().tabSelection(), std::nullopt);
    EXPECT_EQ(shell().tabSelectionPanel(), nullptr);
    ASSERT_EQ(workspace.activated.size(), 1U);
    EXPECT_EQ(workspace.activated[0].processIdentifier, 42);
}

TEST_F(AppDelegateTest, theFrontIsNotTakenFromAnApplicationThatTheUserWentTo) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::selected);
    panels.active = false;
    shell().tabSelectionPanel()->willClose();
    EXPECT_THAT(workspace.activated, IsEmpty());
}

TEST_F(AppDelegateTest, nothingIsGivenBackWhenTheProgramItselfWasInFront) {
    pageIs("https://a.example/", "A");
    workspace.front = RunningApplication{
        .bundleIdentifier = workspace.ownIdentifier, .localizedName = {}, .processIdentifier = 1};
    pressIn(CaptureAction::selected);
    shell().tabSelectionPanel()->willClose();
    EXPECT_THAT(workspace.activated, IsEmpty());
}

TEST_F(AppDelegateTest, savingTheSelectionClosesItsPanel) {
    pageIs("https://a.example/", "A");
    pressIn(CaptureAction::selected);
    shellModel().saveTabSelection();
    EXPECT_EQ(shell().tabSelectionPanel(), nullptr);
    EXPECT_EQ(shellModel().library().links.size(), 1U);
}

// Notices.

TEST_F(AppDelegateTest, aNoticeStandsAtTheTopRightOfThePointersScreen) {
    notice("One");
    EXPECT_EQ(panels.named("One")->origin, (PanelPoint{1000 - 380 - 24, 30 + 20}));
    panels.pointerAt = {1200, 300};
    notice("Two");
    EXPECT_EQ(panels.named("Two")->origin, (PanelPoint{2500 - 380 - 24, 20}));
}

TEST_F(AppDelegateTest, aPointerOnNoScreenFallsBackToTheMainOne) {
    panels.pointerAt = {-50, 5000};
    notice("One");
    EXPECT_EQ(panels.named("One")->origin, (PanelPoint{1000 - 380 - 24, 30 + 20}));
}

TEST_F(AppDelegateTest, withoutAScreenANoticeStaysWhereItIs) {
    panels.screenList.clear();
    notice("One");
    EXPECT_EQ(panels.named("One")->origin, std::nullopt);
    EXPECT_TRUE(panels.named("One")->visible);
}

TEST_F(AppDelegateTest, aNoticeNeverTakesTheKeyboardAndIsAnnounced) {
    notice("Tab saved");
    EXPECT_EQ(panels.named("Tab saved")->keyed, 0);
    EXPECT_THAT(panels.announced, ElementsAre("Tab saved. Message."));
}

TEST_F(AppDelegateTest, aNoticeGoesAfterItsOwnTime) {
    notice("Plain");
    clock.advance(2999ms);
    EXPECT_TRUE(panels.named("Plain")->visible);
    clock.advance(1ms);
    EXPECT_FALSE(panels.named("Plain")->visible);
    notice("Error", true);
    clock.advance(7999ms);
    EXPECT_TRUE(panels.named("Error")->visible);
    clock.advance(1ms);
    EXPECT_FALSE(panels.named("Error")->visible);
}

TEST_F(AppDelegateTest, theSecondOfTwoNoticesStaysForItsOwnFullTime) {
    notice("First");
    clock.advance(2s);
    notice("Second");
    EXPECT_EQ(panels.named("First"), nullptr);
    clock.advance(2999ms);
    EXPECT_TRUE(panels.named("Second")->visible);
    clock.advance(1ms);
    EXPECT_FALSE(panels.named("Second")->visible);
}

TEST_F(AppDelegateTest, aDismissedNoticeIsGone) {
    notice("One");
    panels.actions.dismiss();
    EXPECT_FALSE(panels.named("One")->visible);
}

TEST_F(AppDelegateTest, theNoticesButtonLeadsToBrowserAccess) {
    int opened = 0;
    shell().openAutomationSettings = [&] { ++opened; };
    notice("Browser access needed", true);
    panels.actions.openSettings();
    EXPECT_FALSE(panels.named("Browser access needed")->visible);
    EXPECT_EQ(opened, 1);
}

// Return URLs of a sign-in.

TEST_F(AppDelegateTest, returnURLsThatComeBeforeTheModelWaitForItInTheirOrder) {
    AppDelegate early(parts(), panels);
    early.openURLs({"brinmoor://auth/callback?code=short&state=one"});
    early.openURLs({"brinmoor://auth/callback?error=two", "https://elsewhere.example/"});
    EXPECT_THAT(panels.log, IsEmpty());
    early.launch();
    settle();
    EXPECT_EQ(early.model()->section(), AppSection::account);
    EXPECT_TRUE(early.model()->account().message());
}

TEST_F(AppDelegateTest, theAccountIsShownInTheLibraryWindow) {
    shell().openAccount();
    EXPECT_EQ(shellModel().section(), AppSection::account);
    EXPECT_EQ(panels.log.back(), "key library");
}

TEST_F(AppDelegateTest, comingBackBeforeTheModelIsThereDoesNothing) {
    AppDelegate early(parts(), panels);
    early.applicationDidBecomeActive();
    EXPECT_EQ(early.model(), nullptr);
}

// The offer of a copied link.

TEST_F(AppDelegateTest, theOfferIsTakenAwayAndAPlainNoticeIsNot) {
    notice("Plain");
    shellModel().dismissClipboardNotice();
    EXPECT_TRUE(panels.named("Plain")->visible);
    EXPECT_TRUE(shellModel().toast());
    shellModel().notify({.id = clock.newUuid(),
                         .title = "Save copied link?",
                         .message = "a.example",
                         .clipboardURL = "https://a.example/"});
    shellModel().dismissClipboardNotice();
    EXPECT_FALSE(panels.named("Save copied link?")->visible);
    EXPECT_FALSE(shellModel().toast());
}

TEST_F(AppDelegateTest, theOffersButtonsSaveTheLink) {
    shellModel().notify({.id = clock.newUuid(),
                         .title = "Save copied link?",
                         .message = "a.example",
                         .clipboardURL = "https://a.example/"});
    panels.actions.saveClipboard("https://a.example/", false);
    settle();
    EXPECT_EQ(shellModel().library().links.size(), 1);
    panels.actions.saveClipboard("https://b.example/", true);
    settle();
    EXPECT_TRUE(shellModel().draft());
    EXPECT_NE(panels.named("Save with a note"), nullptr);
}

} // namespace
} // namespace brinmoor

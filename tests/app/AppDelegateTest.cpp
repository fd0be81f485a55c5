#include "app/AppDelegate.h"

#include "account/AccountKeychain.h"
#include "core/account/PendingEmailSignIn.h"
#include "platform/Updater.h"
#include "tests/app/ShellDesk.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PaperPanel;
using testing::settle;
using ::testing::StartsWith;

using AppDelegateTest = testing::ShellDesk;

TEST_F(AppDelegateTest, theAppearanceComesBeforeAnyWindow) {
    preferences.values["appAppearance"] = std::string("cream");
    shell();
    EXPECT_THAT(panels.log,
                ElementsAre("cream", "make library", "menus", "status item", "key library"));
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
    shell();
    notice("Browser access needed", true);
    panels.actions.openSettings();
    EXPECT_FALSE(panels.named("Browser access needed")->visible);
    EXPECT_TRUE(shellModel().isShowingBrowserAccess());
    EXPECT_EQ(shellModel().section(), AppSection::settings);
    EXPECT_EQ(panels.log.back(), "key library");
}

// Return URLs of a sign-in.

/// Takes down when it is started, and hears what the account says from then on.
class FirstUpdater final : public Updater {
public:
    std::function<AppModel*()> model;
    std::vector<std::string> log;

    [[nodiscard]] Result<Done, std::string> start() override {
        log.emplace_back("updater");
        AccountController& account = model()->account();
        QObject::connect(&account, &AccountController::changed, &account, [this, &account] {
            const std::string says = account.message().value_or("");
            if (!says.empty() && says != log.back())
                log.push_back(says);
        });
        return Done{};
    }
    void checkForUpdates() override {}
    [[nodiscard]] bool canCheckForUpdates() const override { return true; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return false; }
    void setAutomaticallyChecksForUpdates(bool) override {}
    [[nodiscard]] Subscription onChange(std::function<void()>) override { return {}; }
};

TEST_F(AppDelegateTest, returnURLsThatComeBeforeTheModelAreTakenOnceInTheirOrderAfterTheUpdater) {
    AccountController& asking = model().account();
    asking.setSignInEmail(u"ada@example.org"_qs);
    asking.sendSignInEmail();
    http.calls.back()->answer(200, R"({"ok":true})");
    settle();
    const auto& stored = secrets.items.at(
        {std::string(AccountKeychain::service), std::string(AccountKeychain::requestItem)});
    const std::string link = "brinmoor://auth/callback?code=" + std::string(43, 'c') +
                             "&state=" + decodePendingSignIn(stored).value().state;
    endModel();
    http.calls.clear();

    FirstUpdater updater;
    AppParts official = parts();
    official.build = {
        .identifier = "app.brinmoor.mac", .updatesEnabled = true, .version = "1.0", .number = "1"};
    official.updater = &updater;
    AppDelegate early(official, panels);
    updater.model = [&] { return early.model(); };
    early.openURLs({link});
    early.openURLs({"https://elsewhere.example/", link});
    EXPECT_THAT(panels.log, IsEmpty());
    early.launch();
    settle();
    EXPECT_THAT(updater.log,
                ElementsAre("updater", "Signing you in…", StartsWith("This sign-in link expired")));
    EXPECT_EQ(http.calls.size(), 1U) << "the link was exchanged once";
    EXPECT_EQ(early.model()->section(), AppSection::account);
}

TEST_F(AppDelegateTest, theLaunchBringsTheLoginInStep) {
    secrets
        .items[{std::string(AccountKeychain::service), std::string(AccountKeychain::tokenItem)}] =
        std::string(43, 'a');
    shell();
    settle();
    ASSERT_EQ(http.calls.size(), 1U);
    EXPECT_EQ(http.calls.front()->request.address, "https://service.example/api/account");
    // And so does the user's coming back, with what the service says by then.
    http.calls.front()->fail({});
    settle();
    panels.didBecomeActive();
    settle();
    EXPECT_EQ(http.calls.size(), 2U);
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

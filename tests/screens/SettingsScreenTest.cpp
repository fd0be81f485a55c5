#include "screens/SettingsScreen.h"

#include "app/AppUpdater.h"
#include "platform/memory/MemoryUpdater.h"
#include "screens/AccountScreen.h"
#include "screens/BrowserAccess.h"
#include "screens/OnboardingScreen.h"
#include "screens/OwnerUsage.h"
#include "screens/ShortcutRecorder.h"
#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using ::testing::ElementsAre;
using namespace testing;

const std::string owner = "owner@service.example";

std::string accountBody(const std::string& email) {
    return R"({"account":{"user":{"id":"u1","name":"Ada","email":")" + email + "\"}}}";
}

class SettingsScreenTest : public Desk {
protected:
    SettingsScreen& screen() {
        if (!screen_)
            screen_ = std::make_unique<SettingsScreen>(model());
        return *screen_;
    }
    ~SettingsScreenTest() override { screen_.reset(); }

    /// Somebody is signed in with this address.
    void signedIn(const std::string& email) {
        secrets.items[{"app.brinmoor.mac.account", "access-token"}] = std::string(43, 'a');
        model().account().synchronizeLogin(AccountController::RefreshExisting::yes);
        settle();
        answer("api/account", accountBody(email));
    }
    void answer(const std::string& path, const std::string& body) {
        for (const auto& call : http.calls)
            if (call->isOpen() && call->request.address == "https://service.example/" + path)
                call->answer(200, body);
        settle();
    }
    void refuseShortcut(CaptureAction action) {
        const auto keys = defaultShortcut(action);
        hotKeys.refused.insert({keys.keyCode, keys.modifiers});
    }

    std::unique_ptr<SettingsScreen> screen_;
};

TEST_F(SettingsScreenTest, everySwitchTakesEffectAtOnce) {
    screen().setSharesUsage(false);
    screen().setOffersCopiedLinks(true);
    screen().setSuggestsTags(false);
    screen().setClosesSourceTab(true);
    EXPECT_FALSE(preferences.boolean("analyticsEnabled", true));
    EXPECT_TRUE(preferences.boolean("clipboardEnabled"));
    EXPECT_FALSE(preferences.boolean("autoTaggingEnabled", true));
    EXPECT_TRUE(preferences.boolean("closeAfterQuickSave"));
    EXPECT_FALSE(model().analyticsEnabled());
    EXPECT_TRUE(model().clipboardEnabled());
    EXPECT_FALSE(screen().suggestsTags());
    EXPECT_TRUE(screen().closesSourceTab());
}

TEST_F(SettingsScreenTest, theThemeIsRememberedAndFollowedFromElsewhere) {
    EXPECT_TRUE(screen().isDark());
    int told = 0;
    QObject::connect(&screen(), &SettingsScreen::appearanceChanged, &screen(), [&] { ++told; });
    screen().chooseAppearance(false);
    EXPECT_EQ(preferences.text("appAppearance"), "cream");
    EXPECT_FALSE(screen().isDark());
    preferences.set("appAppearance", std::string("black"));
    EXPECT_TRUE(screen().isDark());
    EXPECT_EQ(told, 2);
}

TEST_F(SettingsScreenTest, anEmptyActiveLibraryCanNotBeArchived) {
    SavedLink archived = link("https://a.example/", "A");
    archived.isArchived = true;
    given(libraryOf({archived}));
    EXPECT_FALSE(screen().canArchiveAll());
    screen().archiveAll();
    EXPECT_EQ(screen().archiveTitle(), QString());
}

TEST_F(SettingsScreenTest, archivingEverythingIgnoresTheFilterAndCanBeUndone) {
    given(libraryOf({link("https://a.example/", "A"), link("https://b.example/", "B")}));
    LibraryFilter filter = model().view();
    filter.query = "nothing has this";
    model().setView(filter);
    screen().archiveAll();
    EXPECT_EQ(screen().archiveTitle(), u"Archive 2 links"_qs);
    screen().confirmArchiveAll();
    EXPECT_EQ(screen().archiveTitle(), QString());
    EXPECT_FALSE(screen().canArchiveAll());
    model().undoArchive();
    EXPECT_TRUE(screen().canArchiveAll());
}

TEST_F(SettingsScreenTest, theCountIsThatOfTheMomentOfTheButton) {
    given(libraryOf({link("https://a.example/", "A")}));
    screen().archiveAll();
    EXPECT_EQ(screen().archiveTitle(), u"Archive 1 link"_qs);
    pageIs("https://b.example/", "B");
    press(CaptureAction::quick);
    EXPECT_EQ(screen().archiveTitle(), u"Archive 1 link"_qs);
    screen().confirmArchiveAll();
    EXPECT_TRUE(screen().canArchiveAll());
}

TEST_F(SettingsScreenTest, cancelArchivesNothing) {
    given(libraryOf({link("https://a.example/", "A")}));
    screen().archiveAll();
    screen().cancelArchiveAll();
    screen().confirmArchiveAll();
    EXPECT_TRUE(screen().canArchiveAll());
}

TEST_F(SettingsScreenTest, aBuildWithoutUpdatesSaysWhy) {
    EXPECT_FALSE(screen().hasUpdates());
    EXPECT_FALSE(screen().canCheckForUpdates());
    EXPECT_EQ(screen().updatesNote(),
              u"Updates are available in the installed release of Brinmoor."_qs);
    EXPECT_EQ(screen().version(), u"Brinmoor development (development)"_qs);
}

TEST_F(SettingsScreenTest, theReleasesUpdatesAreSwitchedAndChecked) {
    MemoryUpdater updater;
    AppParts release = parts();
    release.build = {
        .identifier = "app.brinmoor.mac", .updatesEnabled = true, .version = "1.0", .number = "1"};
    release.updater = &updater;
    AppModel released(release);
    SettingsScreen shown(released);
    EXPECT_FALSE(shown.canCheckForUpdates());
    released.updater().start();
    EXPECT_TRUE(shown.canCheckForUpdates());
    shown.setChecksAutomatically(true);
    EXPECT_TRUE(shown.checksAutomatically());
    shown.checkForUpdates();
    EXPECT_EQ(updater.checks, 1);
    EXPECT_EQ(shown.version(), u"Brinmoor 1.0 (1)"_qs);
    EXPECT_EQ(shown.updatesNote(),
              u"Brinmoor checks for new versions in the background. You choose "
              "when to download and install them."_qs);
}

TEST_F(SettingsScreenTest, theSixShortcutsStandInTheirOrder) {
    QStringList actions;
    for (int place = 0; place < 6; ++place)
        actions.append(screen().shortcut(place)->action());
    EXPECT_EQ(actions, (QStringList{u"Save link"_qs, u"Save with a note"_qs,
                                    u"Save selected tabs"_qs, u"Save all tabs in window"_qs,
                                    u"Search open tabs"_qs, u"Close duplicate tabs"_qs}));
    EXPECT_EQ(screen().shortcut(0)->title(), u"⇧⌘K"_qs);
    EXPECT_EQ(screen().shortcut(4)->resetName(), u"Reset Search open tabs shortcut"_qs);
}

TEST_F(SettingsScreenTest, aShortcutThatFailedAtLaunchIsReadAtOnce) {
    refuseShortcut(CaptureAction::search);
    EXPECT_EQ(screen().shortcut(4)->error(), u"Unavailable. Choose another shortcut."_qs);
    EXPECT_EQ(screen().tab(), SettingsScreen::Tab::Capture);
    EXPECT_TRUE(screen().hasShortcutErrors());
}

TEST_F(SettingsScreenTest, resetPutsTheDefaultBack) {
    model().configureShortcut(CaptureShortcut{38, 0x100, "J"}, CaptureAction::note);
    EXPECT_EQ(screen().shortcut(1)->title(), u"⌘J"_qs);
    screen().shortcut(1)->reset();
    EXPECT_EQ(screen().shortcut(1)->title(), u"⌥⌘K"_qs);
}

TEST_F(SettingsScreenTest, whatElseChangesAShortcutEndsARecordingFirst) {
    screen();
    const std::size_t all = hotKeys.registered.size();
    ASSERT_EQ(all, 6U);
    const std::function<void()> others[] = {[&] { screen().shortcut(1)->reset(); },
                                            [&] { screen().applyPreset(); }};
    for (const auto& change : others) {
        screen().shortcut(0)->press();
        ASSERT_TRUE(screen().shortcut(0)->isRecording());
        EXPECT_TRUE(hotKeys.registered.empty());
        change();
        EXPECT_FALSE(screen().shortcut(0)->isRecording());
        EXPECT_EQ(hotKeys.registered.size(), all);
    }
    EXPECT_EQ(screen().shortcut(1)->title(), u"⇧⌘N"_qs);
}

TEST_F(SettingsScreenTest, onlyOneRecorderRecordsAndNoHotKeyIsLiveMeanwhile) {
    screen().shortcut(0)->press();
    screen().shortcut(1)->press();
    EXPECT_FALSE(screen().shortcut(0)->isRecording());
    EXPECT_TRUE(screen().shortcut(1)->isRecording());
    EXPECT_TRUE(hotKeys.registered.empty());
    screen().shortcut(1)->cancel();
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

TEST_F(SettingsScreenTest, theSettingsOpenOnTheirFirstTab) {
    model().setSection(AppSection::settings);
    screen().setTab(SettingsScreen::Tab::Library);
    model().setSection(AppSection::library);
    model().setSection(AppSection::settings);
    EXPECT_EQ(screen().tab(), SettingsScreen::Tab::General);
}

TEST_F(SettingsScreenTest, theBrowsersPageKeepsTheTabAndChecksWhenItOpens) {
    model().setSection(AppSection::settings);
    screen().setTab(SettingsScreen::Tab::Capture);
    screen().showBrowserAccess();
    settle();
    EXPECT_TRUE(screen().showsBrowserAccess());
    EXPECT_EQ(browsers.told, 1);
    EXPECT_EQ(screen().browserAccess()->rowCount(), 1);
    screen().leaveBrowserAccess();
    EXPECT_FALSE(screen().showsBrowserAccess());
    EXPECT_EQ(screen().tab(), SettingsScreen::Tab::Capture);
}

TEST_F(SettingsScreenTest, showTheQuickTourStartsAtItsFirstPage) {
    OnboardingScreen tour(model());
    tour.goOn();
    model().completeOnboarding();
    screen().showTour();
    EXPECT_TRUE(tour.isShown());
    EXPECT_EQ(tour.step(), 0);
}

TEST_F(SettingsScreenTest, thePreviewIsTheOfferOfACopiedLink) {
    screen().previewClipboardOffer();
    EXPECT_EQ(lastWords().first, "Save copied link?");
}

// The owner's report.

TEST_F(SettingsScreenTest, theOwnerIsTheOwnerInAnyLetterCase) {
    EXPECT_FALSE(screen().ownerUsage()->isOwner());
    signedIn("Owner@Service.Example");
    EXPECT_TRUE(screen().ownerUsage()->isOwner());
}

TEST_F(SettingsScreenTest, theReportGoesWithItsOwner) {
    screen();
    signedIn(owner);
    screen().ownerUsage()->load();
    EXPECT_EQ(screen().ownerUsage()->buttonTitle(), u"Loading…"_qs);
    answer("api/usage/report",
           R"({"days":30,"rows":[{"day":"d","event":"links_saved","count":3}]})");
    ASSERT_TRUE(screen().ownerUsage()->hasReport());
    EXPECT_EQ(screen().ownerUsage()->titles().size(), 9);
    EXPECT_EQ(screen().ownerUsage()->counts().at(1), u"3"_qs);
    model().account().signOut();
    EXPECT_FALSE(screen().ownerUsage()->isOwner());
    EXPECT_FALSE(screen().ownerUsage()->hasReport());
}

TEST_F(SettingsScreenTest, nobodyElseHasAReport) {
    screen();
    signedIn("ada@example.org");
    EXPECT_TRUE(model().account().hasLogin());
    EXPECT_FALSE(screen().ownerUsage()->isOwner());
}

// The browsers.

class BrowserAccessTest : public SettingsScreenTest {
protected:
    BrowserAccess& access() { return *screen().browserAccess(); }
    QVariant at(int row, int role) { return access().data(access().index(row), role); }
    void givenNoExtension() {
        scripts.answer = [](const ScriptRun& run) {
            return CannedScripts::Answer(failure(
                CaptureFailure(CaptureError{CaptureError::Cause::permission, run.browserName})));
        };
    }
    void check() {
        access().check();
        settle();
    }
};

TEST_F(BrowserAccessTest, aBrowserWithoutTheExtensionOffersItsSteps) {
    givenNoExtension();
    check();
    EXPECT_EQ(at(0, BrowserAccess::WordsRole), u"Extension not added"_qs);
    EXPECT_EQ(at(0, BrowserAccess::HasStepsRole), true);
    EXPECT_EQ(at(0, BrowserAccess::CopyablesRole).toStringList(),
              (QStringList{u"chrome://extensions"_qs, QString(),
                           u"/usr/share/brinmoor/extension"_qs, QString()}));
    scripts.hold = CannedScripts::Hold::everything;
    check();
    EXPECT_EQ(at(0, BrowserAccess::WordsRole), u"Checking…"_qs);
    EXPECT_EQ(at(0, BrowserAccess::HasStepsRole), true);
    scripts.release();
    settle();
    access().copy(u"chrome://extensions"_qs);
    EXPECT_EQ(pasteboard.text(), "chrome://extensions");
}

TEST_F(BrowserAccessTest, theOnlyStepsAreUnfoldedOnceAndStayAsTheUserLeavesThem) {
    givenNoExtension();
    check();
    EXPECT_EQ(at(0, BrowserAccess::ExpandedRole), true);
    access().toggleSteps(0);
    EXPECT_EQ(at(0, BrowserAccess::ExpandedRole), false);
    check();
    EXPECT_EQ(at(0, BrowserAccess::ExpandedRole), false);
    access().toggleSteps(0);
    EXPECT_EQ(at(0, BrowserAccess::ExpandedRole), true);
}

TEST_F(BrowserAccessTest, theStepsOfSeveralBrowsersWaitToBeAskedFor) {
    workspace.running.push_back({.bundleIdentifier = "com.brave.Browser",
                                 .localizedName = "Brave",
                                 .processIdentifier = 43});
    givenNoExtension();
    check();
    ASSERT_EQ(access().rowCount(), 2);
    for (const int row : {0, 1}) {
        EXPECT_EQ(at(row, BrowserAccess::HasStepsRole), true);
        EXPECT_EQ(at(row, BrowserAccess::ExpandedRole), false);
    }
}

TEST_F(BrowserAccessTest, whatCanNotBeConnectedSaysWhatToDoInstead) {
    browsers.installed = {{"org.mozilla.firefox", "Firefox"}};
    check();
    EXPECT_EQ(at(1, BrowserAccess::NameRole), u"Firefox isn’t supported yet"_qs);
    EXPECT_EQ(at(1, BrowserAccess::BrowserRole), u"Firefox"_qs);
    EXPECT_EQ(at(1, BrowserAccess::WordsRole), QString());
    EXPECT_FALSE(at(1, BrowserAccess::NoteRole).toString().isEmpty());
}

TEST_F(BrowserAccessTest, whileItChecksEveryRunningBrowserSaysSo) {
    scripts.hold = CannedScripts::Hold::everything;
    check();
    EXPECT_TRUE(access().isChecking());
    EXPECT_EQ(at(0, BrowserAccess::WordsRole), u"Checking…"_qs);
    scripts.release();
    settle();
    EXPECT_EQ(at(0, BrowserAccess::WordsRole), u"Connected"_qs);
    EXPECT_FALSE(access().isChecking());
}

TEST_F(BrowserAccessTest, withoutBrowsersThePageIsEmpty) {
    workspace.running.clear();
    check();
    EXPECT_TRUE(access().isEmpty());
}

// The tour.

class OnboardingScreenTest : public Desk {};

TEST_F(OnboardingScreenTest, threePagesLeadToTheEnd) {
    OnboardingScreen tour(model());
    EXPECT_TRUE(tour.isShown());
    EXPECT_EQ(tour.progress(), u"1 of 3"_qs);
    EXPECT_EQ(tour.heading(), u"Keep the good stuff close."_qs);
    tour.goBack();
    EXPECT_EQ(tour.step(), 0);
    tour.goOn();
    EXPECT_EQ(tour.continueText(), u"Continue"_qs);
    tour.goOn();
    EXPECT_EQ(tour.progress(), u"3 of 3"_qs);
    EXPECT_EQ(tour.continueText(), u"Start saving"_qs);
    tour.goBack();
    tour.goOn();
    tour.goOn();
    EXPECT_FALSE(tour.isShown());
    EXPECT_TRUE(preferences.boolean("hasCompletedOnboarding"));
}

TEST_F(OnboardingScreenTest, closingItDoesntFinishIt) {
    OnboardingScreen tour(model());
    tour.goOn();
    tour.dismiss();
    EXPECT_FALSE(tour.isShown());
    EXPECT_FALSE(preferences.boolean("hasCompletedOnboarding"));
    EXPECT_FALSE(model().onboardingCompleted());
}

TEST_F(OnboardingScreenTest, aChangedShortcutIsShown) {
    OnboardingScreen tour(model());
    EXPECT_EQ(tour.shortcut(), (QStringList{u"⇧"_qs, u"⌘"_qs, u"K"_qs}));
    model().configureShortcut(CaptureShortcut{38, 0x900, "J"}, CaptureAction::quick);
    EXPECT_EQ(tour.shortcut(), (QStringList{u"⌥"_qs, u"⌘"_qs, u"J"_qs}));
}

// The account.

class AccountScreenTest : public SettingsScreenTest {
protected:
    void open() { account = std::make_unique<AccountScreen>(model()); }
    ~AccountScreenTest() override { account.reset(); }
    void ask() {
        account->setSignInEmail(u"ada@example.org"_qs);
        account->send();
        settle();
    }
    std::unique_ptr<AccountScreen> account;
};

TEST_F(AccountScreenTest, atFirstItOffersTheMail) {
    open();
    EXPECT_FALSE(account->hasLogin());
    EXPECT_EQ(account->sendText(), u"Email me a sign-in link"_qs);
    EXPECT_TRUE(account->canSend());
    EXPECT_FALSE(account->canCancel());
    EXPECT_EQ(account->message(), QString());
}

TEST_F(AccountScreenTest, whileItAsksNothingElseCanBeAsked) {
    open();
    ask();
    EXPECT_TRUE(account->isInProgress());
    EXPECT_FALSE(account->canSend());
    EXPECT_TRUE(account->canCancel());
    EXPECT_EQ(account->sendText(), u"Email me a sign-in link"_qs);
    answer("api/auth/native/request", R"({"ok":true})");
    EXPECT_TRUE(account->waitsForMail());
    EXPECT_EQ(account->sendText(), u"Resend sign-in email"_qs);
    EXPECT_FALSE(account->message().isEmpty());
    account->cancel();
    EXPECT_FALSE(account->canCancel());
}

TEST_F(AccountScreenTest, aFailedRequestLeavesTheResendButtonWithItsReason) {
    open();
    ask();
    http.calls.back()->answer(503, "");
    settle();
    EXPECT_TRUE(account->waitsForMail());
    EXPECT_TRUE(account->canSend());
    EXPECT_EQ(account->sendText(), u"Resend sign-in email"_qs);
    EXPECT_FALSE(account->message().isEmpty());
}

TEST_F(AccountScreenTest, beforeTheFirstAnswerTheAddressIsEmptyAndSignOutWorks) {
    secrets.items[{"app.brinmoor.mac.account", "access-token"}] = std::string(43, 'a');
    open();
    EXPECT_TRUE(account->hasLogin());
    EXPECT_EQ(account->userEmail(), QString());
    EXPECT_TRUE(account->canSignOut());
    account->signOut();
    EXPECT_FALSE(account->hasLogin());
}

TEST_F(AccountScreenTest, signingOutDuringTheFirstRefreshHoldsAgainstItsAnswer) {
    secrets.items[{"app.brinmoor.mac.account", "access-token"}] = std::string(43, 'a');
    open();
    account->appear();
    settle();
    ASSERT_TRUE(model().account().isBusy());
    ASSERT_TRUE(account->canSignOut());
    const auto call = http.calls.back();
    account->signOut();
    EXPECT_FALSE(account->hasLogin());
    EXPECT_FALSE(model().account().isBusy());
    if (call->isOpen())
        call->answer(200, accountBody("ada@example.org"));
    settle();
    EXPECT_FALSE(account->hasLogin());
    EXPECT_EQ(account->userEmail(), QString());
    EXPECT_EQ(account->message(), QString());
    EXPECT_FALSE(secrets.items.contains({"app.brinmoor.mac.account", "access-token"}));
}

TEST_F(AccountScreenTest, whoIsSignedInIsShownOnceTheScreenAppears) {
    secrets.items[{"app.brinmoor.mac.account", "access-token"}] = std::string(43, 'a');
    open();
    account->appear();
    settle();
    answer("api/account", accountBody("ada@example.org"));
    EXPECT_EQ(account->userName(), u"Ada"_qs);
    EXPECT_EQ(account->userEmail(), u"ada@example.org"_qs);
    EXPECT_TRUE(account->canSignOut());
}

TEST_F(AccountScreenTest, aLaterRefreshIsWaitedForBeforeSigningOut) {
    signedIn("ada@example.org");
    open();
    EXPECT_TRUE(account->canSignOut());
    account->appear();
    settle();
    EXPECT_FALSE(account->canSignOut());
    answer("api/account", accountBody("ada@example.org"));
    EXPECT_TRUE(account->canSignOut());
}

} // namespace
} // namespace brinmoor

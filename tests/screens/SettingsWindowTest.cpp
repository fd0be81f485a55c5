#include "screens/AppRoot.h"
#include "screens/OnboardingScreen.h"
#include "screens/SettingsScreen.h"
#include "screens/ShortcutRecorder.h"
#include "tests/screens/PanelDesk.h"

namespace brinmoor {
namespace {

using namespace testing;
using Tab = SettingsScreen::Tab;

constexpr std::uint32_t keyJ = 0x6a;
constexpr std::uint32_t keyO = 0x6f;
constexpr std::uint32_t keyW = 0x77;
constexpr std::uint32_t keyF5 = 0xffc2;

class SettingsWindowTest : public PanelDesk {
protected:
    ~SettingsWindowTest() override { panel.reset(); }

    void open(AppSection section) {
        panel = panels.libraryWindow(model());
        model().setSection(section);
        panel->center();
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
    }
    void openTab(Tab tab) {
        open(AppSection::settings);
        settings().setTab(tab);
        ASSERT_TRUE(waitUntil([&] { return settled(); }));
    }
    /// The page has slid to its place.
    bool settled() {
        QQuickItem* page = shown(u"SettingsGeneral"_qs);
        page = page ? page : shown(u"SettingsCapture"_qs);
        page = page ? page : shown(u"SettingsLibrary"_qs);
        return page && page->parentItem()->opacity() == 1;
    }
    AppRoot& root() { return *viewOf(*panel).findChild<AppRoot*>(); }
    SettingsScreen& settings() { return *root().settings(); }
    ShortcutRecorder& recorder(int place) { return *settings().shortcut(place); }

    QQuickItem* shown(const QString& type, const QString& text = {}) {
        return itemOf(viewOf(*panel).rootObject(), type, text);
    }
    void press(const QString& type, const QString& text = {}) { click(*panel, type, text); }
    bool registered(CaptureAction action, std::uint32_t keyCode, std::uint32_t modifiers) {
        const auto found = hotKeys.registered.find(hotKeyId(action));
        return found != hotKeys.registered.end() && found->second.keyCode == keyCode &&
               found->second.modifiers == modifiers;
    }
    void startRecording() {
        press(u"RecorderButton"_qs);
        ASSERT_TRUE(waitUntil([&] { return recorder(0).isRecording(); }));
    }

    std::unique_ptr<Panel> panel;
};

TEST_F(SettingsWindowTest, aClickChoosesTheThemeForEveryWindow) {
    openTab(Tab::General);
    press(u"ThemeTile"_qs, u"Original cream & sage"_qs);
    EXPECT_TRUE(waitUntil([&] { return preferences.text("appAppearance") == "cream"; }));
    EXPECT_TRUE(waitUntil([&] {
        return shown(u"ThemeTile"_qs, u"Original cream & sage"_qs)->property("selected").toBool();
    }));
}

TEST_F(SettingsWindowTest, theKeyboardSwitchesASetting) {
    openTab(Tab::General);
    QQuickItem* toggle = shown(u"ToggleSwitch"_qs, u"Share anonymous usage counts"_qs);
    ASSERT_NE(toggle, nullptr);
    for (int tabs = 0; tabs < 20 && !toggle->hasActiveFocus(); ++tabs) {
        QQuickItem* before = viewOf(*panel).activeFocusItem();
        desktop.press(Key::tab);
        ASSERT_TRUE(waitUntil([&] { return viewOf(*panel).activeFocusItem() != before; }));
    }
    ASSERT_TRUE(toggle->hasActiveFocus());
    desktop.press(Key::space);
    EXPECT_TRUE(waitUntil([&] { return !model().analyticsEnabled(); }));
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return model().analyticsEnabled(); }));
}

TEST_F(SettingsWindowTest, theTabsAndTheWayBack) {
    openTab(Tab::General);
    press(u"SettingsTab"_qs, u"Library"_qs);
    EXPECT_TRUE(waitUntil([&] { return settings().tab() == Tab::Library; }));
    press(u"BackButton"_qs, u"Library"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().section() == AppSection::library; }));
}

TEST_F(SettingsWindowTest, archivingEverythingAsksFirst) {
    given(libraryOf({link("https://a.example/", "A"), link("https://b.example/", "B")}));
    openTab(Tab::Library);
    press(u"SettingsAction"_qs, u"Archive all links…"_qs);
    ASSERT_TRUE(waitUntil([&] { return shown(u"ArchiveAllAlert"_qs) != nullptr; }));
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return shown(u"ArchiveAllAlert"_qs) == nullptr; }));
    EXPECT_TRUE(settings().canArchiveAll());
    press(u"SettingsAction"_qs, u"Archive all links…"_qs);
    ASSERT_TRUE(waitUntil([&] { return shown(u"ArchiveAllAlert"_qs) != nullptr; }));
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return !settings().canArchiveAll(); }));
}

TEST_F(SettingsWindowTest, withNothingToArchiveTheActionIsOff) {
    openTab(Tab::Library);
    EXPECT_FALSE(shown(u"SettingsAction"_qs, u"Archive all links…"_qs)->isEnabled());
    EXPECT_TRUE(shown(u"SettingsAction"_qs, u"Export backup…"_qs)->isEnabled());
}

TEST_F(SettingsWindowTest, theUpdatesSayWhyThereAreNone) {
    openTab(Tab::General);
    EXPECT_FALSE(shown(u"SecondaryButton"_qs, u"Check for Updates…"_qs)->isEnabled());
    EXPECT_NE(
        shown(u"PlainText"_qs, u"Updates are available in the installed release of Brinmoor."_qs),
        nullptr);
}

// Recording a shortcut.

TEST_F(SettingsWindowTest, aPressedCombinationBecomesTheShortcut) {
    openTab(Tab::Capture);
    startRecording();
    EXPECT_TRUE(hotKeys.registered.empty());
    EXPECT_EQ(recorder(0).title(), u"Press shortcut…"_qs);
    desktop.press(keyJ, {"Super", "Shift"});
    ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    EXPECT_TRUE(registered(CaptureAction::quick, 38, 0x300));
    EXPECT_EQ(recorder(0).title(), u"⇧⌘J"_qs);
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

TEST_F(SettingsWindowTest, escapeCancelsAndRegistersEverythingAgain) {
    openTab(Tab::Capture);
    for (const bool withSuper : {false, true}) {
        startRecording();
        desktop.press(Key::escape, withSuper ? std::vector<std::string_view>{"Super"}
                                             : std::vector<std::string_view>{});
        ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
        EXPECT_EQ(hotKeys.registered.size(), 6U);
        EXPECT_EQ(recorder(0).title(), u"⇧⌘K"_qs);
    }
}

TEST_F(SettingsWindowTest, whatIsNoShortcutIsRefusedWithAHintAndTheRecordingGoesOn) {
    openTab(Tab::Capture);
    const std::pair<std::uint32_t, std::vector<std::string_view>> refused[] = {
        {keyJ, {"Shift"}}, {Key::enter, {"Super"}}, {keyF5, {"Ctrl"}}, {keyJ, {}}};
    for (const auto& [key, held] : refused) {
        startRecording();
        ASSERT_EQ(recorder(0).title(), u"Press shortcut…"_qs);
        desktop.press(key, held);
        ASSERT_TRUE(waitUntil([&] { return recorder(0).title() == u"Use ⌘, ⌥, or ⌃ + a key"_qs; }))
            << key;
        EXPECT_TRUE(recorder(0).isRecording());
        desktop.press(Key::escape);
        ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    }
    EXPECT_EQ(model().shortcuts(), defaultShortcuts());
    EXPECT_FALSE(preferences.values.contains("captureShortcuts"));
}

TEST_F(SettingsWindowTest, theSpaceBarIsCalledSpace) {
    openTab(Tab::Capture);
    startRecording();
    desktop.press(Key::space, {"Super"});
    ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    EXPECT_EQ(recorder(0).title(), u"⌘Space"_qs);
}

TEST_F(SettingsWindowTest, aShortcutOfTheWindowIsRecordedAndNotObeyed) {
    openTab(Tab::Capture);
    startRecording();
    desktop.press(keyW, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    EXPECT_TRUE(registered(CaptureAction::quick, 13, 0x1000));
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(SettingsWindowTest, aCombinationOfAnotherActionIsRefusedBesideTheRow) {
    openTab(Tab::Capture);
    startRecording();
    desktop.press(keyO, {"Super", "Shift"});
    ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    EXPECT_EQ(recorder(0).error(), u"Already used by ‘Search open tabs’."_qs);
    EXPECT_NE(shown(u"PlainText"_qs, u"Already used by ‘Search open tabs’."_qs), nullptr);
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

TEST_F(SettingsWindowTest, aSecondClickOnTheButtonEndsTheRecordingAndAThirdBeginsAnother) {
    openTab(Tab::Capture);
    startRecording();
    press(u"RecorderButton"_qs);
    ASSERT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    settle();
    EXPECT_FALSE(recorder(0).isRecording());
    EXPECT_EQ(hotKeys.registered.size(), 6U);
    startRecording();
}

TEST_F(SettingsWindowTest, aClickElsewhereEndsTheRecordingAndDoesWhatItDoes) {
    openTab(Tab::Capture);
    startRecording();
    press(u"SettingsTab"_qs, u"General"_qs);
    EXPECT_TRUE(waitUntil([&] { return settings().tab() == Tab::General; }));
    EXPECT_FALSE(recorder(0).isRecording());
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

TEST_F(SettingsWindowTest, anotherWindowInFrontEndsTheRecording) {
    openTab(Tab::Capture);
    startRecording();
    otherInFront();
    EXPECT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

TEST_F(SettingsWindowTest, leavingTheScreenEndsTheRecording) {
    openTab(Tab::Capture);
    startRecording();
    model().setSection(AppSection::tags);
    EXPECT_TRUE(waitUntil([&] { return !recorder(0).isRecording(); }));
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

TEST_F(SettingsWindowTest, theWindowsEndEndsTheRecording) {
    openTab(Tab::Capture);
    startRecording();
    panel.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(hotKeys.registered.size(), 6U);
}

// The browsers' page.

TEST_F(SettingsWindowTest, theStepsOfABrowserAreShownAndCopied) {
    scripts.answer = [](const ScriptRun& run) {
        return CannedScripts::Answer(failure(
            CaptureFailure(CaptureError{CaptureError::Cause::permission, run.browserName})));
    };
    open(AppSection::settings);
    settings().showBrowserAccess();
    for (const QString& button : {u"Hide steps"_qs, u"Show steps"_qs}) {
        ASSERT_TRUE(waitUntil([&] { return shown(u"SecondaryButton"_qs, button); }));
        press(u"SecondaryButton"_qs, button);
    }
    // The row has grown for them.
    ASSERT_TRUE(waitUntil([&] {
        const QQuickItem* row = shown(u"BrowserRow"_qs);
        const QQuickItem* last = shown(u"IconButton"_qs, u"Copy /usr/share/brinmoor/extension"_qs);
        return row && last && last->mapToItem(row, {0, 0}).y() > 120 && row->height() > 200;
    }));
    press(u"IconButton"_qs, u"Copy chrome://extensions"_qs);
    EXPECT_TRUE(waitUntil([&] { return pasteboard.text() == "chrome://extensions"; }));
    desktop.press(Key::escape);
    EXPECT_TRUE(waitUntil([&] { return !settings().showsBrowserAccess(); }));
    EXPECT_EQ(model().section(), AppSection::settings);
}

TEST_F(SettingsWindowTest, checkAgainAsksTheBrowsersOnceMore) {
    open(AppSection::settings);
    settings().showBrowserAccess();
    ASSERT_TRUE(waitUntil([&] { return shown(u"PlainText"_qs, u"Connected"_qs); }));
    const auto before = scripts.runs.size();
    press(u"SecondaryButton"_qs, u"Check again"_qs);
    EXPECT_TRUE(waitUntil([&] { return scripts.runs.size() == before + 1; }));
}

// The tour.

class TourWindowTest : public SettingsWindowTest {
protected:
    TourWindowTest() { preferences.values.erase("hasCompletedOnboarding"); }
};

TEST_F(TourWindowTest, enterGoesThroughTheTourAndFinishesIt) {
    open(AppSection::library);
    for (int step = 0; step < 3; ++step) {
        ASSERT_TRUE(waitUntil([&] { return root().onboarding()->step() == step; }));
        desktop.press(Key::enter);
    }
    EXPECT_TRUE(waitUntil([&] { return !root().onboarding()->isShown(); }));
    EXPECT_TRUE(preferences.boolean("hasCompletedOnboarding"));
}

TEST_F(TourWindowTest, theCrossLeavesItForTheNextLaunch) {
    open(AppSection::library);
    press(u"IconButton"_qs, u"Close onboarding"_qs);
    EXPECT_TRUE(waitUntil([&] { return !model().isShowingOnboarding(); }));
    EXPECT_FALSE(preferences.boolean("hasCompletedOnboarding"));
}

TEST_F(TourWindowTest, backGoesBack) {
    open(AppSection::library);
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return root().onboarding()->step() == 1; }));
    press(u"BaseButton"_qs, u"Back"_qs);
    EXPECT_TRUE(waitUntil([&] { return root().onboarding()->step() == 0; }));
}

// The account.

TEST_F(SettingsWindowTest, anAddressIsTypedAndSent) {
    open(AppSection::account);
    ASSERT_TRUE(waitUntil([&] {
        const QQuickItem* focused = viewOf(*panel).activeFocusItem();
        return focused && focused->inherits("QQuickTextInput");
    }));
    desktop.type("ada");
    ASSERT_TRUE(waitUntil([&] { return model().account().signInEmail() == "ada"; }));
    press(u"PrimaryButton"_qs, u"Email me a sign-in link"_qs);
    EXPECT_TRUE(
        waitUntil([&] { return model().account().message() == "Enter a valid email address."; }));
    EXPECT_NE(shown(u"PlainText"_qs, u"Enter a valid email address."_qs), nullptr);
}

// Less movement.

TEST_F(SettingsWindowTest, withLessMovementATabIsThereAtOnceWithoutSliding) {
    panels.setReducedMotion(true);
    openTab(Tab::General);
    settings().setTab(Tab::Library);
    QQuickItem* page = shown(u"SettingsLibrary"_qs);
    ASSERT_NE(page, nullptr);
    const qreal place = page->mapToScene({0, 0}).x();
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(page->mapToScene({0, 0}).x(), place);
}

} // namespace
} // namespace brinmoor

#include "app/BrowserConnections.h"
#include "screens/AppRoot.h"
#include "screens/BrowserAccess.h"
#include "screens/OnboardingScreen.h"
#include "screens/QuickPanel.h"
#include "screens/SettingsScreen.h"
#include "screens/ShortcutRecorder.h"
#include "tests/screens/TestDesktop.h"
#include "tests/screenshots/Studio.h"

#include <QKeyEvent>

namespace brinmoor {

namespace {

using testing::CannedScripts;
using Tab = SettingsScreen::Tab;

constexpr QSize usual(750, 680);

/// One library window to take pictures of.
class SettingsTour {
public:
    SettingsTour(Studio& studio, Desk& desk)
        : studio_(studio), desk_(desk), model_(partsOf(desk)),
          panel_(studio.panels().libraryWindow(model_)),
          view_(dynamic_cast<QuickPanel&>(*panel_).view()), root_(*view_.findChild<AppRoot*>()) {
        studio.panels().setReducedMotion(true);
        resize(usual);
        panel_->makeKeyAndOrderFront();
    }
    ~SettingsTour() { studio_.panels().setReducedMotion(false); }

    void takeTabs() {
        model_.setSection(AppSection::settings);
        take("settings-general");
        resize({750, 850});
        take("settings-general-full");
        settings().setTab(Tab::Capture);
        resize({750, 1080});
        take("settings-capture-full");
        resize(usual);
        take("settings-capture");
        takeRecorder();
        settings().setTab(Tab::Library);
        take("settings-library");
        settings().archiveAll();
        take("settings-library-archive-all");
        settings().cancelArchiveAll();
        resize({640, 520});
        settings().setTab(Tab::General);
        take("settings-minimum");
        resize(usual);
    }

    void takeBrowsers() {
        desk_.browsers.installed.clear();
        desk_.workspace.running.clear();
        settings().showBrowserAccess();
        take("browsers-none");
        desk_.browsers.installed = {{"org.chromium.Chromium", "Chromium"},
                                    {"com.brave.Browser", "Brave"},
                                    {"com.vivaldi.Vivaldi", "Vivaldi"},
                                    {"com.operasoftware.Opera", "Opera", true},
                                    {"org.mozilla.firefox", "Firefox"}};
        for (const char* id : {"org.chromium.Chromium", "com.vivaldi.Vivaldi"})
            desk_.workspace.running.push_back(
                {.bundleIdentifier = id, .localizedName = {}, .processIdentifier = 7});
        desk_.scripts.hold = CannedScripts::Hold::everything;
        model_.browserConnections().check();
        take("browsers-checking");
        desk_.scripts.answer = [](const ScriptRun& run) {
            using Cause = CaptureError::Cause;
            return run.browserName == "Chromium"
                       ? CannedScripts::Answer(
                             failure(CaptureFailure(CaptureError{Cause::permission, {}})))
                       : CannedScripts::Answer("1");
        };
        desk_.scripts.hold = CannedScripts::Hold::nothing;
        desk_.scripts.release();
        await([&] { return !model_.browserConnections().isChecking(); });
        settings().browserAccess()->toggleSteps(2);
        take("browsers-mixed");
    }

    void takeTour() {
        model_.setSection(AppSection::library);
        model_.setShowingOnboarding(true);
        for (const char* name : {"onboarding-0", "onboarding-1", "onboarding-2"})
            takePage(name);
        resize({640, 520});
        model_.setShowingOnboarding(true);
        for (const char* name : {"onboarding-0-low", "onboarding-1-low", "onboarding-2-low"})
            takePage(name);
        resize(usual);
    }

    void takeAccount() {
        model_.setSection(AppSection::account);
        take("account-signed-out");
        AccountController& account = model_.account();
        account.setSignInEmail(QStringLiteral("mara@example.org"));
        account.setSignInName(QStringLiteral("Mara"));
        account.sendSignInEmail();
        await([&] { return desk_.http.open() > 0; });
        take("account-sending");
        desk_.http.calls.back()->answer(200, R"({"ok":true})");
        await([&] { return account.signInStage() == AccountController::SignInStage::waiting; });
        take("account-waiting");
        account.cancelSignIn();
        desk_.secrets.items[{"app.brinmoor.mac.account", "access-token"}] = std::string(43, 'a');
        const auto synchronizing =
            account.synchronizeLogin(AccountController::RefreshExisting::yes);
        await([&] { return desk_.http.open() > 0; });
        desk_.http.calls.back()->answer(
            200,
            R"({"account":{"user":{"id":"1","name":"Mara Lindqvist","email":"mara@example.org"}}})");
        await([&] { return account.hasLogin(); });
        take("account-signed-in");
        model_.setSection(AppSection::settings);
        resize({1300, 680});
        take("settings-wide");
    }

private:
    static AppParts partsOf(Desk& desk) {
        AppParts parts = desk.parts();
        parts.build = {.identifier = "app.brinmoor.mac",
                       .updatesEnabled = false,
                       .version = "1.0",
                       .number = "1"};
        return parts;
    }
    SettingsScreen& settings() { return *root_.settings(); }

    void resize(QSize size) {
        view_.resize(size);
        await([&] { return view_.size() == size; });
    }
    void take(const char* name) { studio_.take(*panel_, QString::fromLatin1(name)); }
    void type(int key, Qt::KeyboardModifiers held, quint32 scanCode) {
        QKeyEvent press(QEvent::KeyPress, key, held, scanCode, 0, 0);
        QCoreApplication::sendEvent(&view_, &press);
    }

    void takePage(const char* name) {
        take(name);
        root_.onboarding()->goOn();
    }

    void takeRecorder() {
        constexpr quint32 placeOfJ = 44;
        resize({750, 1080});
        ShortcutRecorder& quick = *settings().shortcut(0);
        quick.press();
        take("settings-recorder-recording");
        type(Qt::Key_J, Qt::ShiftModifier, placeOfJ);
        take("settings-recorder-hint");
        quick.cancel();
        model_.configureShortcut(defaultShortcut(CaptureAction::quick), CaptureAction::note);
        take("settings-recorder-error");
        model_.configureShortcut(defaultShortcut(CaptureAction::note), CaptureAction::note);
        resize(usual);
    }

    Studio& studio_;
    Desk& desk_;
    AppModel model_;
    std::unique_ptr<Panel> panel_;
    QQuickView& view_;
    AppRoot& root_;
};

} // namespace

void takeSettings(Studio& studio) {
    Desk desk(sampleLibrary());
    desk.preferences.set("appAppearance", studio.theme());
    desk.preferences.set("hasCompletedOnboarding.1", true);
    SettingsTour tour(studio, desk);
    tour.takeTabs();
    tour.takeBrowsers();
    tour.takeTour();
    tour.takeAccount();
}

} // namespace brinmoor
